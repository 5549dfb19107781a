#include "Command.h"
#include "output/ExitCode.h"
#include "output/FindingPrinter.h"
#include "output/Messages.h"
#include "output/RepeatedFindings.h"
#include "output/ResultStream.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>
#include <vemo/import/Exception.h>
#include <vemo/import/SceneAudit.h>
#include <vemo/resolve/SceneResolver.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>
#include <vemo/scenegraph/inspect/NumberText.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace vemo {

namespace {

using FindingList = std::vector<Finding>;

/// What drawing the scene would report.
void checkDrawing(lum::SceneNode& scene, FindingList& findings) {
  const FindingCapture capture(findings);
  try {
    static_cast<void>(SceneResolver(scene).resolve());
  } catch (const std::exception& error) {
    reportFinding(FindingCode::SCENE_NOT_DRAWN, error.what());
  }
}

FindingList checkArchive(const std::string& file) {
  const SceneAudit audit(toWidePath(file));
  FindingList findings = audit.getFindings();
  if (audit.getSceneNode() != nullptr) {
    checkDrawing(*audit.getSceneNode(), findings);
  }
  return findings;
}

std::set<std::size_t> checkArrays(lum::SDBReader& reader, FindingList& findings) {
  std::set<std::size_t> damaged;
  for (std::size_t i = 0; i < reader.getArrays().size(); ++i) {
    try {
      reader.checkArray(i);
    } catch (const lum::io::FileError& error) {
      findings.push_back({FindingCode::DATABASE_DAMAGED, error.what()});
      damaged.insert(i);
    }
  }
  return damaged;
}

/// Checks each array and each record separately, so that one fault does not
/// hide others.
void checkDatabase(lum::SDBReader& reader, FindingList& findings) {
  const std::set<std::size_t> damagedArrays = checkArrays(reader, findings);
  for (std::size_t i = 0; i < reader.getRecords().size(); ++i) {
    const lum::SDBReader::CheckedRecord record = reader.checkRecord(i, damagedArrays);
    for (const std::string& fault : record.faults) {
      findings.push_back({FindingCode::DATABASE_DAMAGED, fault});
    }
    if (auto* const scene = dynamic_cast<lum::SceneNode*>(record.node.getObject())) {
      checkDrawing(*scene, findings);
    }
  }
}

FindingList checkDatabase(const std::string& file) {
  FindingList findings;
  const FindingCapture capture(findings);
  try {
    lum::SDBReader reader(toWidePath(file));
    checkDatabase(reader, findings);
  } catch (const lum::io::FileError& error) {
    findings.push_back({FindingCode::DATABASE_DAMAGED, error.what()});
  }
  return findings;
}

SceneKind kindOf(const std::string& file) {
  try {
    return detectScene(toWidePath(file));
  } catch (const Exception&) {
    // An archive that cannot be opened, which is a finding.
    return SceneKind::ARCHIVE;
  }
}

FindingList check(const std::string& file) {
  FindingList findings = kindOf(file) == SceneKind::ARCHIVE ? checkArchive(file) : checkDatabase(file);
  RepeatedFindings all;
  std::erase_if(findings, [&all](const Finding& finding) { return all.isRepeated(finding); });
  return findings;
}

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
    return check(file);
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
