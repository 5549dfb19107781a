#include "CommandLine.h"

#include "Command.h"
#include "InputFile.h"
#include "TemporaryFiles.h"
#include "base/MemoryReserve.h"
#include "base/NearNames.h"
#include "output/Messages.h"
#include "output/ResultStream.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <set>
#include <sstream>
#include <string_view>
#include <unistd.h>

namespace vemo {

namespace {

/// The next file to be opened would get the number of a closed standard stream,
/// and messages would be written into it. What takes its place cannot be used either.
void holdStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) < 0) {
      open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
  }
}

void print(const std::string& text) {
  ResultStream out;
  out << text;
  out.finish();
}

/// The names of the options of a command, or of the program's.
std::set<std::string> optionsOf(const CLI::App& app) {
  const auto chosen = app.get_subcommands();
  std::set<std::string> names;
  for (const CLI::Option* const option : (chosen.empty() ? &app : chosen.front())->get_options()) {
    for (const std::string& name : option->get_lnames()) {
      names.insert("--" + name);
    }
  }
  return names;
}

/// What is wrong with arguments that the parser does not know, in its words or better ones.
std::string describeUnknown(CLI::App& app, const std::string& complaint) {
  const std::vector<std::string> unknown = app.remaining(true);
  const std::string first = unknown.empty() ? std::string() : unknown.front();
  if (first.starts_with('-')) {
    return complaint + suggestNames(first.substr(0, first.find('=')), optionsOf(app));
  }
  return app.get_subcommands().empty() ? Subcommand::describeUnknown(app, first) : complaint;
}

/// Prints the help that was asked for, or what is wrong with the arguments.
ExitCode answer(CLI::App& app, const CLI::ParseError& error) {
  std::ostringstream help;
  std::ostringstream complaint;
  if (app.exit(error, help, complaint) == 0) {
    print(help.str());
    return ExitCode::DONE;
  }
  // Begins with what is wrong.
  const std::string advice = complaint.str().substr(std::string_view(error.what()).size());
  const bool isUnknown = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
  showUsage(toPrintableLine(isUnknown ? describeUnknown(app, error.what()) : error.what()) + advice);
  return ExitCode::WRONG_USAGE;
}

/// Fills the command, unless the arguments only asked for help or the version.
ExitCode parse(int argc, char** argv, Command& command) {
  CLI::App app;
  addArguments(app, command);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return answer(app, error);
  }
  // The parser's own check would not name an unknown subcommand.
  if (app.get_subcommands().empty()) {
    showUsage("A command is required\n" + app.help());
    return ExitCode::WRONG_USAGE;
  }
  return ExitCode::DONE;
}

ExitCode runJob(Command& command, const Command::Job& job) {
  try {
    command.file = job.file;
    startMessages(command.jobs.size() > 1 ? job.file : std::string());
    requireReadable(toWidePath(readableFile(job.file)));
    job.run();
    return command.result;
  } catch (...) {
    waitWhenEnding();
    const ExitCode code = reportFailure(command.file);
    return command.failureCode.value_or(code);
  }
}

/// Returns the worst exit code.
ExitCode runJobs(Command& command) {
  if (command.prepare) {
    command.prepare();
  }
  std::vector<ExitCode> codes;
  for (const Command::Job& job : command.jobs) {
    codes.push_back(runJob(command, job));
  }
  if (command.summarize && codes.size() > 1) {
    command.summarize(codes);
  }
  const bool isFound = command.failOn && worstFinding() >= command.failOn;
  return std::max(*std::ranges::max_element(codes), isFound ? ExitCode::FOUND : ExitCode::DONE);
}

}  // namespace

void addArguments(CLI::App& app, Command& command) {
  app.name("vemoscene");
  app.description("Inspect, convert and draw scene files of both generations.");
  app.set_version_flag("-V,--version", "vemoscene " VEMO_VERSION, "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.footer(describeExitCodes());
  app.require_subcommand(0, 1);
  Subcommand::addAll(app, command);
}

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
    if (!command.answer.empty()) {
      print(command.answer);
    }
    return command.jobs.empty() || code != ExitCode::DONE ? code : runJobs(command);
  } catch (...) {
    waitWhenEnding();
    return reportFailure(command.file);
  }
}

}  // namespace vemo
