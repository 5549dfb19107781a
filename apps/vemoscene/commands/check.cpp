#include "Command.h"
#include "InputFile.h"
#include "output/ExitCode.h"
#include "output/FindingPrinter.h"
#include "output/Messages.h"
#include "output/ResultStream.h"
#include "shared/CheckScene.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace vemo {

namespace {

using FindingList = std::vector<Finding>;

/// "3 findings (2 refused, 1 lost)", "no findings".
std::string countBySeverity(const FindingList& findings) {
  std::string text;
  for (const Severity severity : {Severity::REFUSED, Severity::LOST, Severity::CHANGED, Severity::NOTE}) {
    const auto count = std::ranges::count(findings, severity, &Finding::getSeverity);
    if (count > 0) {
      text +=
          fmt::format("{}{} {}", text.empty() ? "" : ", ", lum::groupDigits(count), severityName(severity));
    }
  }
  return findings.empty() ? "no findings"
                          : fmt::format("{} finding{} ({})", lum::groupDigits(std::ssize(findings)),
                                        findings.size() == 1 ? "" : "s", text);
}

struct CheckArguments {
  std::vector<std::string> files;
  bool asJson = false;
  /// How many could be read, and what was found in all of them.
  std::size_t checkedCount = 0;
  FindingList findings{};
};

void print(std::ostream& out, const std::string& file, const FindingList& findings,
           const CheckArguments& arguments) {
  if (arguments.asJson) {
    lum::JsonWriter json(out);
    json.beginObject();
    json.key("path");
    json.value(file);
    printFindings(json, findings);
    json.endObject();
    json.finish();
    return;
  }
  for (const Finding& finding : findings) {
    out << (arguments.files.size() > 1 ? toPrintableLine(file) + ": " : "")
        << toPrintableLine(describe(finding)) << '\n';
  }
  out << fmt::format("{}: {}\n", toPrintableLine(file), countBySeverity(findings));
}

void runCheck(const std::string& file, CheckArguments& arguments) {
  const FindingList findings = [&file] {
    const Progress progress(fmt::format("Checking {}", toPrintableLine(file)));
    return checkScene(toWidePath(readableFile(file)));
  }();
  ResultStream out;
  print(out, file, findings, arguments);
  out.finish();
  ++arguments.checkedCount;
  arguments.findings.insert(arguments.findings.end(), findings.begin(), findings.end());
  const auto isRefused = [](const Finding& finding) { return finding.getSeverity() == Severity::REFUSED; };
  if (std::ranges::any_of(findings, isRefused)) {
    throw Failure(ExitCode::READ_ERROR, "");
  }
  std::ranges::for_each(findings, noteFinding);
}

void summarizeChecks(const CheckArguments& arguments) {
  if (!arguments.asJson) {
    ResultStream out;
    const std::size_t unread = arguments.files.size() - arguments.checkedCount;
    out << fmt::format("{} files: {}{}\n", arguments.files.size(), countBySeverity(arguments.findings),
                       unread > 0 ? fmt::format(", {} not read", unread) : "");
    out.finish();
  }
}

void addCheckCommand(CLI::App& app, Command& command) {
  const auto arguments = std::make_shared<CheckArguments>();
  CLI::App* const checkApp = app.add_subcommand(
      "check", "List everything wrong or suspicious in scene files; also verifies checksums");
  addFilesArgument(*checkApp, arguments->files);
  checkApp->add_flag("--json", arguments->asJson, "Print one JSON object for each FILE, for programs");
  addFailOnOption(*checkApp, command);
  checkApp->callback([arguments, &command] {
    for (const std::string& file : arguments->files) {
      command.jobs.push_back({file, [file, arguments] { runCheck(file, *arguments); }});
    }
    command.summarize = [arguments](const std::vector<ExitCode>& /*codes*/) { summarizeChecks(*arguments); };
  });
}

const Subcommand CHECK(5, addCheckCommand);

}  // namespace

}  // namespace vemo
