#include "Command.h"

#include <vemo/base/InternalError.h>

#include <map>

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

}  // namespace vemo
