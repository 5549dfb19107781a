#include "Command.h"
#include "FileArguments.h"
#include "FileChecks.h"
#include "InputFile.h"
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
  FileArguments files;
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
  rejectSameOutput(request.output, arguments.ledger);
  checkOutput(arguments.ledger, LEDGER_KIND, arguments.force);
  requireArchive(request.file);
  const bool isPrinted = !isStandardOutput(request.output) && !isStandardOutput(arguments.ledger);
  request.observeLedger = [&arguments, isPrinted, output = request.output](const SceneLedger& ledger) {
    // It exists now, by whatever name.
    rejectSameOutput(output, arguments.ledger);
    const std::string summary = writeLedger(ledger, arguments.ledger);
    if (isPrinted) {
      ResultStream out;
      out << summary << '\n';
      out.finish();
    }
  };
}

void convert(const ConvertArguments& arguments, const FileArguments::Paths& paths) {
  ExportRequest request = arguments.request;
  request.file = paths.file;
  request.output = paths.output;
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
  Progress progress(fmt::format("Converting {}", toPrintableLine(request.file)));
  request.progress = progress.getReport();
  request.file = readableFile(request.file);
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
  arguments->files.addTo(*convertApp, "The file to write: " + listExportFormats());
  convertApp->add_flag("--force", arguments->force, "Also replace files of other kinds");
  convertApp->add_flag(
      "--verify", request.verify,
      "Read back what was written before it becomes OUT, compare it with what was to be written, and "
      "print what was compared; "
      "exit with 6 and leave OUT alone if they differ");
  convertApp->add_option("--ledger", arguments->ledger)
      ->option_text("FILE")
      ->description("Write what became of each element, attribute and entry of an archive, as JSON lines");
  addFailOnOption(*convertApp, command);
  convertApp->callback([arguments, &command] {
    const auto all = arguments->files.getPaths(".sdb");
    if (all.size() > 1 && !arguments->ledger.empty()) {
      throw CLI::ValidationError("--ledger", "There is one for a single FILE only");
    }
    command.prepare = [arguments] { arguments->files.makeFolder(); };
    command.summarize = FileArguments::showFailures;
    command.jobs = FileArguments::makeJobs(
        all, [arguments](const FileArguments::Paths& paths) { convert(*arguments, paths); });
  });
}

const Subcommand CONVERT(2, addConvertCommand);

}  // namespace

}  // namespace vemo
