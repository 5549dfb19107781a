#include "Command.h"
#include "FileChecks.h"
#include "Messages.h"
#include "TemporaryFiles.h"
#include "export/ExportFormat.h"
#include <vemo/base/PrintableText.h>

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <memory>
#include <string>

namespace vemo {

namespace {

void convert(const ExportRequest& options) {
  refuseSameFile(options.file, options.output);
  removePartialOutputWhenEnded(options.output);
  const Progress progress(fmt::format("Converting {}", toPrintable(options.file)));
  findExportFormat(options.output).write(options);
}

void addConvertCommand(CLI::App& app, Command& command) {
  const auto options = std::make_shared<ExportRequest>();
  CLI::App* const convertApp = app.add_subcommand(
      "convert", "Convert a scene archive to a scene-graph database; a database is checked and copied");
  convertApp->add_option("FILE", options->file, "The scene archive or database to read")->required();
  convertApp->add_option("OUT", options->output, "The database to write, usually NAME.sdb")->required();
  convertApp->add_flag("--verify", options->verify,
                       "Read OUT back, compare it with what was to be written, and print what was compared; "
                       "exit with 6 and remove OUT if they differ");
  addFailOnOption(*convertApp, command);
  convertApp->callback([options, &command] {
    command.file = options->file;
    command.run = [options] { convert(*options); };
  });
}

const Subcommand CONVERT(2, addConvertCommand);

}  // namespace

}  // namespace vemo
