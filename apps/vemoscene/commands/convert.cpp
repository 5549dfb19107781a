#include "Command.h"
#include "FileChecks.h"
#include "LedgerFile.h"
#include "OutputFile.h"
#include "TemporaryFiles.h"
#include "export/ExportFormat.h"
#include "output/ExitCode.h"
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
  bool force = false;
};

/// Adds the ledger to the request.
void prepareLedger(const ConvertArguments& arguments, ExportRequest& request) {
  rejectSameFile(request.file, arguments.ledger);
  if (isStandardOutput(request.output) && isStandardOutput(arguments.ledger)) {
    throw Failure(ExitCode::WRONG_USAGE, "OUT and LEDGER cannot both be standard output");
  }
  rejectSameFile(request.output, arguments.ledger);
  checkOutput(arguments.ledger, LEDGER_KIND, arguments.force);
  requireArchive(request.file);
  const bool isPrinted = !isStandardOutput(request.output) && !isStandardOutput(arguments.ledger);
  request.observeLedger = [&arguments, isPrinted](const SceneLedger& ledger) {
    const std::string summary = writeLedger(ledger, arguments.ledger);
    if (isPrinted) {
      ResultStream out;
      out << summary << '\n';
      out.finish();
    }
  };
}

void convert(const ConvertArguments& arguments) {
  ExportRequest request = arguments.request;
  rejectSameFile(request.file, request.output);
  const ExportFormat& format = findExportFormat(request.output);
  const bool toStandardOutput = isStandardOutput(request.output);
  if (toStandardOutput && request.verify) {
    throw Failure(ExitCode::WRONG_USAGE, "Standard output cannot be read back and verified");
  }
  checkOutput(request.output, format.kind, arguments.force);
  if (!arguments.ledger.empty()) {
    prepareLedger(arguments, request);
  }
  Progress progress(fmt::format("Converting {}", toPrintable(request.file)));
  request.progress = progress.getReport();
  if (toStandardOutput) {
    request.output = useOwnTemporaryFolder() / "output";
  }
  format.write(request);
  if (toStandardOutput) {
    copyToStandardOutput(request.output);
  }
}

void addConvertCommand(CLI::App& app, Command& command) {
  const auto arguments = std::make_shared<ConvertArguments>();
  ExportRequest& request = arguments->request;
  CLI::App* const convertApp =
      app.add_subcommand("convert", "Convert a scene to the format of OUT, usually a scene-graph database");
  convertApp->add_option("FILE", request.file, "The scene archive or database to read")->required();
  convertApp
      ->add_option("OUT", request.output,
                   "The file to write: " + listExportFormats() + "; - is standard output")
      ->required();
  convertApp->add_flag("--force", arguments->force, "Also replace files of other kinds");
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
