#include "Command.h"

#include <vemo/base/InternalError.h>

#include <CLI/CLI.hpp>
#include <map>
#include <string>

namespace vemo {

namespace {

/// Constants in other files fill it before main, in any order.
std::map<int, Subcommand::Add>& getRegistered() {
  static std::map<int, Subcommand::Add> registered;
  return registered;
}

}  // namespace

Subcommand::Subcommand(int position, Add add) {
  VEMO_REQUIRE(getRegistered().emplace(position, add).second, "Two subcommands have the same position");
}

void Subcommand::addAll(CLI::App& app, Command& command) {
  for (const auto& [position, add] : getRegistered()) {
    add(app, command);
  }
}

void addFailOnOption(CLI::App& app, Command& command) {
  const std::string description = "Exit with 1 if there are findings of this severity or a worse one";
  app.add_option_function<std::string>(
         "--fail-on", [&command](const std::string& name) { command.failOn = parseSeverity(name); },
         description)
      ->option_text("note|changed|lost")
      ->check(CLI::IsMember({"note", "changed", "lost"}));
}

}  // namespace vemo
