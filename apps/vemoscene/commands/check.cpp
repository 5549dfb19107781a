#include "Command.h"
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

void print(std::ostream& out, const std::string& file, const FindingList& findings, bool asJson) {
  if (asJson) {
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
    out << toPrintable(describe(finding)) << '\n';
  }
  out << fmt::format("{}: {}\n", toPrintable(file), countBySeverity(findings));
}

void runCheck(const std::string& file, bool asJson) {
  const FindingList findings = [&file] {
    const Progress progress(fmt::format("Checking {}", toPrintable(file)));
    return checkScene(toWidePath(file));
  }();
  ResultStream out;
  print(out, file, findings, asJson);
  out.finish();
  const auto isRefused = [](const Finding& finding) { return finding.getSeverity() == Severity::REFUSED; };
  if (std::ranges::any_of(findings, isRefused)) {
    throw Failure(ExitCode::READ_ERROR, "");
  }
  std::ranges::for_each(findings, noteFinding);
}

void addCheckCommand(CLI::App& app, Command& command) {
  const auto file = std::make_shared<std::string>();
  const auto asJson = std::make_shared<bool>(false);
  CLI::App* const checkApp = app.add_subcommand(
      "check", "List everything wrong or suspicious in a scene file; also verifies checksums");
  checkApp->add_option("FILE", *file, "The scene archive or database to read")->required();
  checkApp->add_flag("--json", *asJson, "Print one JSON object, for programs");
  addFailOnOption(*checkApp, command);
  checkApp->callback([file, asJson, &command] {
    command.file = *file;
    command.run = [file, asJson] { runCheck(*file, *asJson); };
  });
}

const Subcommand CHECK(5, addCheckCommand);

}  // namespace

}  // namespace vemo
