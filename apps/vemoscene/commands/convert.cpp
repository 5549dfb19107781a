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

struct ConvertArguments {
  std::string file;
  std::string output;
};

void convert(const ConvertArguments& options) {
  refuseSameFile(options.file, options.output);
  removePartialOutputWhenEnded(options.output);
  const Progress progress(fmt::format("Converting {}", toPrintable(options.file)));
  findExportFormat(options.output).write(options.file, options.output);
}

void addConvertCommand(CLI::App& app, Command& command) {
  const auto options = std::make_shared<ConvertArguments>();
  CLI::App* const convertApp =
      app.add_subcommand("convert", "Convert a scene to the format of OUT, usually a scene-graph database");
  convertApp->add_option("FILE", options->file, "The scene archive or database to read")->required();
  convertApp->add_option("OUT", options->output, "The file to write: " + listExportFormats())->required();
  addFailOnOption(*convertApp, command);
  convertApp->callback([options, &command] {
    command.file = options->file;
    command.run = [options] { convert(*options); };
  });
}

const Subcommand CONVERT(2, addConvertCommand);

}  // namespace

}  // namespace vemo
