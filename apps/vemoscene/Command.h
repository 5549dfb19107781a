#pragma once

#include <functional>
#include <string>

namespace CLI {
class App;
}

namespace vemo {

/// What the arguments ask for.
struct Command {
  /// The scene file that it is about, as the user named it.
  std::string file;
  /// Does it; throws what goes wrong.
  std::function<void()> run;
};

// Each adds a subcommand, which fills `command` when the arguments name it.

void addInfoCommand(CLI::App& app, Command& command);
void addConvertCommand(CLI::App& app, Command& command);
void addRenderCommand(CLI::App& app, Command& command);
/// Only where the window is built.
void addViewCommand(CLI::App& app, Command& command);

}  // namespace vemo
