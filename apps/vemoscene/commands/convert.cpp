#include "Command.h"
#include "FileChecks.h"
#include "LedgerFile.h"
#include "TemporaryFiles.h"
#include "export/ExportFormat.h"
#include "output/Messages.h"
#include "output/ResultStream.h"
#include <vemo/base/PrintableText.h>

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <memory>
#include <string>

namespace vemo {

namespace {

struct ConvertArguments {
  ExportRequest request;
  std::string ledger;
};

void convert(const ConvertArguments& arguments) {
  ExportRequest request = arguments.request;
  rejectSameFile(request.file, request.output);
  removePartialOutputWhenEnded(request.output);
  const Progress progress(fmt::format("Converting {}", toPrintable(request.file)));
  if (!arguments.ledger.empty()) {
    rejectSameFile(request.file, arguments.ledger);
    rejectSameFile(request.output, arguments.ledger);
    requireArchive(request.file);
    request.observeLedger = [&arguments](const SceneLedger& ledger) {
      ResultStream out;
      out << writeLedger(ledger, arguments.ledger) << '\n';
      out.finish();
    };
  }
  findExportFormat(request.output).write(request);
}

void addConvertCommand(CLI::App& app, Command& command) {
  const auto arguments = std::make_shared<ConvertArguments>();
  ExportRequest& request = arguments->request;
  CLI::App* const convertApp =
      app.add_subcommand("convert", "Convert a scene to the format of OUT, usually a scene-graph database");
  convertApp->add_option("FILE", request.file, "The scene archive or database to read")->required();
  convertApp->add_option("OUT", request.output, "The file to write: " + listExportFormats())->required();
  convertApp->add_flag("--verify", request.verify,
                       "Read OUT back, compare it with what was to be written, and print what was compared; "
                       "exit with 6 and remove OUT if they differ");
  convertApp->add_option("--ledger", arguments->ledger)
      ->option_text("FILE")
      ->description("Write what became of each element, attribute and entry of an archive, as JSON lines");
  addFailOnOption(*convertApp, command);
  convertApp->callback([arguments, &command] {
    command.file = arguments->request.file;
    command.run = [arguments] { convert(*arguments); };
  });
}

const Subcommand CONVERT(2, addConvertCommand);

}  // namespace

}  // namespace vemo
