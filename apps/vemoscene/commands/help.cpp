#include "Command.h"
#include "output/ExitCode.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

namespace vemo {

namespace {

/// As --help prints it.
std::string helpOn(CLI::App& app, const std::string& topic) {
  if (topic.empty()) {
    // Its own function would answer for the subcommand at hand.
    return app.get_formatter()->make_help(&app, app.get_name(), CLI::AppFormatMode::Normal);
  }
  const std::string complaint = Subcommand::describeUnknown(app, topic);
  if (!complaint.empty()) {
    throw Failure(ExitCode::WRONG_USAGE, complaint);
  }
  return app.get_subcommand(topic)->help(app.get_name());
}

void addHelpCommand(CLI::App& app, Command& command) {
  const auto topic = std::make_shared<std::string>();
  CLI::App* const helpApp = app.add_subcommand("help", "Print help on the program or a command");
  helpApp->add_option("COMMAND", *topic, "The command");
  helpApp->callback([topic, &app, &command] { command.answer = helpOn(app, *topic); });
}

const Subcommand HELP(7, addHelpCommand);

}  // namespace

}  // namespace vemo
