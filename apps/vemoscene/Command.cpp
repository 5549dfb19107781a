#include "Command.h"

#include "base/NearNames.h"
#include <vemo/base/InternalError.h>

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <map>
#include <set>
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

std::string Subcommand::describeUnknown(const CLI::App& app, const std::string& name) {
  std::set<std::string> names;
  for (const CLI::App* const subcommand : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.insert(subcommand->get_name());
  }
  return names.contains(name) ? std::string()
                              : fmt::format("There is no command \"{}\"{}", name, suggestNames(name, names));
}

void addFilesArgument(CLI::App& app, std::vector<std::string>& files) {
  app.add_option("FILE", files, "The scene archives or databases to read; - is standard input")->required();
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
