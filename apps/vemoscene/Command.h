#pragma once

#include "output/ExitCode.h"
#include <vemo/scenegraph/Finding.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vemo {

/// What the arguments ask for.
struct Command {
  /// The work on one scene file.
  struct Job {
    /// As the user named it.
    std::string file;
    /// Exceptions are its failures; the jobs after it are done all the same.
    std::function<void()> run;
  };

  std::vector<Job> jobs;
  /// Called once before the jobs, which its exceptions prevent; may be empty.
  std::function<void()> prepare{};
  /// To be printed, when no work is asked for.
  std::string answer{};
  /// Called after several jobs, with the exit codes of each; may be empty.
  std::function<void(const std::vector<ExitCode>&)> summarize;
  /// The scene file at hand. Messages that do not name a file begin with it.
  std::string file;
  /// Findings of this severity, or worse ones, make the command fail.
  std::optional<Severity> failOn = std::nullopt;
  /// The exit code of a run that did not fail.
  ExitCode result = ExitCode::DONE;
  /// The exit code of any failure, if the command has only one.
  std::optional<ExitCode> failureCode = std::nullopt;
};

/// Adds the argument FILE..., of one scene file or several.
void addFilesArgument(CLI::App& app, std::vector<std::string>& files);

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

  /// What is wrong with a name that is not one of a subcommand; empty for one that is.
  static std::string describeUnknown(const CLI::App& app, const std::string& name);
};

}  // namespace vemo
