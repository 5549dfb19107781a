#pragma once

#include "output/ExitCode.h"
#include <vemo/scenegraph/Finding.h>

#include <functional>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace vemo {

/// What the arguments ask for.
struct Command {
  /// The scene file to work on, as the user named it. Messages that do not name a
  /// file begin with it.
  std::string file;
  /// Runs the command; exceptions are its failures.
  std::function<void()> run;
  /// Findings of this severity, or worse ones, make the command fail.
  std::optional<Severity> failOn = std::nullopt;
  /// The exit code of a run that did not fail.
  ExitCode result = ExitCode::DONE;
  /// The exit code of any failure, if the command has only one.
  std::optional<ExitCode> failureCode = std::nullopt;
};

/// Adds the option --fail-on to a subcommand.
void addFailOnOption(CLI::App& app, Command& command);

/// A subcommand registers itself by a constant in its own file, so that a new one
/// is a new file in commands/ and nothing else:
///
///     const Subcommand INFO(1, addInfoCommand);
class Subcommand {
 public:
  /// Adds the subcommand to the parser. Parsing it fills `command`.
  using Add = void (*)(CLI::App& app, Command& command);

  /// @param position in the list that --help prints; no two are equal
  Subcommand(int position, Add add);

  /// Adds all registered subcommands in the order of their positions.
  static void addAll(CLI::App& app, Command& command);
};

}  // namespace vemo
