#include "Command.h"
#include "FileChecks.h"
#include "LedgerFile.h"
#include "Messages.h"
#include "ResultStream.h"
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
  std::string ledger;
};

void convert(const ConvertArguments& options) {
  refuseSameFile(options.file, options.output);
  removePartialOutputWhenEnded(options.output);
  const Progress progress(fmt::format("Converting {}", toPrintable(options.file)));
  if (!options.ledger.empty()) {
    refuseSameFile(options.file, options.ledger);
    requireArchive(options.file);
  }
  findExportFormat(options.output).write(options.file, options.output);
  if (!options.ledger.empty()) {
    ResultStream out;
    out << writeLedger(options.file, options.ledger) << '\n';
    out.finish();
  }
}

void addConvertCommand(CLI::App& app, Command& command) {
  const auto options = std::make_shared<ConvertArguments>();
  CLI::App* const convertApp =
      app.add_subcommand("convert", "Convert a scene to the format of OUT, usually a scene-graph database");
  convertApp->add_option("FILE", options->file, "The scene archive or database to read")->required();
  convertApp->add_option("OUT", options->output, "The file to write: " + listExportFormats())->required();
  convertApp->add_option("--ledger", options->ledger)
      ->option_text("FILE")
      ->description("Write what became of each element, attribute and entry of an archive, as JSON lines");
  addFailOnOption(*convertApp, command);
  convertApp->callback([options, &command] {
    command.file = options->file;
    command.run = [options] { convert(*options); };
  });
}

const Subcommand CONVERT(2, addConvertCommand);

}  // namespace

}  // namespace vemo
