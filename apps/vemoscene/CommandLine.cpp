#include "CommandLine.h"

#include "Command.h"
#include "TemporaryFiles.h"
#include "base/MemoryReserve.h"
#include "output/Messages.h"
#include "output/ResultStream.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <fcntl.h>
#include <sstream>
#include <unistd.h>

namespace vemo {

namespace {

/// The next file to be opened would get the number of a closed standard stream,
/// and messages would be written into it.
void holdStandardStreams() {
  while (true) {
    const int file = open("/dev/null", O_RDONLY);
    if (file < 0 || file > STDERR_FILENO) {
      close(file);
      return;
    }
  }
}

/// Prints the help that was asked for, or what is wrong with the arguments.
ExitCode answer(const CLI::App& app, const CLI::ParseError& error) {
  std::ostringstream help;
  std::ostringstream complaint;
  if (app.exit(error, help, complaint) != 0) {
    showMessage(complaint.str());
    return ExitCode::WRONG_USAGE;
  }
  ResultStream out;
  out << help.str();
  out.finish();
  return ExitCode::DONE;
}

/// Fills the command, unless the arguments only asked for help or the version.
ExitCode parse(int argc, char** argv, Command& command) {
  CLI::App app("Inspect, convert and draw scene files of both generations.", "vemoscene");
  app.set_version_flag("--version", "vemoscene " VEMO_VERSION, "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.footer(describeExitCodes());
  app.require_subcommand(0, 1);
  Subcommand::addAll(app, command);
  try {
    app.parse(argc, argv);
    // Checked here because the parser's own check does not name an unknown
    // subcommand.
    if (!command.run) {
      throw CLI::RequiredError::Subcommand(1);
    }
  } catch (const CLI::ParseError& error) {
    return answer(app, error);
  }
  return ExitCode::DONE;
}

}  // namespace

ExitCode runCommandLine(int argc, char** argv) {
  holdStandardStreams();
  // Writing to a closed pipe, or a file beyond the limit on its size, is a write error;
  // the signal would end the process and leave temporary files.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  Command command;
  try {
    // Static: also for destructors at exit.
    static const OS::MemoryReserve reserve;
    showLog();
    const ExitCode code = parse(argc, argv, command);
    if (command.run) {
      requireReadable(toWidePath(command.file));
      command.run();
      if (command.failOn && worstFinding() >= command.failOn) {
        return ExitCode::FOUND;
      }
      return command.result;
    }
    return code;
  } catch (...) {
    waitWhenEnding();
    const ExitCode code = reportFailure(command.file);
    return command.failureCode.value_or(code);
  }
}

}  // namespace vemo
