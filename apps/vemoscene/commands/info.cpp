#include "Command.h"
#include "InputFile.h"
#include "LoadedScene.h"
#include "output/FindingPrinter.h"
#include "output/Messages.h"
#include "output/ResultStream.h"
#include "output/TreePrinter.h"
#include "output/ValuesLimit.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/archive/ZipFileReader.h>
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/inspect/GeometryCounts.h>
#include <vemo/scenegraph/inspect/JsonPrinter.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace vemo {

namespace {

struct InfoArguments {
  std::vector<std::string> files;
  bool json = false;
  bool values = false;
};

/// A scene and what was reported while it was read.
struct Contents {
  const OpenedScene& scene;
  LogCapture::Log log;
};

Contents load(const std::string& file) {
  LogCapture log;
  const OpenedScene& scene = loadScene(file);
  return {scene, log.take()};
}

/// Beside the findings for programs that know only these texts.
void printWarnings(lum::JsonWriter& json, const LogCapture::Log& log) {
  json.key("warnings");
  json.beginArray();
  for (const Finding& finding : log.findings) {
    if (finding.getSeverity() > Severity::NOTE) {
      json.value(fmt::format("{}{}{}", finding.text,
                             finding.entry.empty() ? "" : fmt::format(", entry '{}'", finding.entry),
                             finding.itemPath.empty() ? "" : fmt::format(", item {}", finding.itemPath)));
    }
  }
  for (const std::string& line : log.lines) {
    json.value(line);
  }
  json.endArray();
}

void printJson(std::ostream& out, const std::string& file, const Contents& contents,
               const InfoArguments& options) {
  const OpenedScene& scene = contents.scene;
  const bool isArchive = scene.kind == SceneKind::ARCHIVE;
  lum::JsonWriter json(out);
  const auto print = [&json](const char* name, const std::string& text) {
    json.key(name);
    json.value(text);
  };
  json.beginObject();
  print("path", file);
  print("format", isArchive ? "ZippedScene" : "SceneDatabase");
  printFindings(json, contents.log.findings);
  printWarnings(json, contents.log);
  json.key("records");
  json.beginArray();
  for (const OpenedScene::Record& record : scene.records) {
    json.beginObject();
    print("title", record.title);
    print("description", record.description);
    print("simUUID", record.simUUID);
    json.key("node");
    using Values = lum::JsonPrinter::Values;
    lum::JsonPrinter(json, options.values ? Values::SHOWN : Values::LEFT_OUT).print(*record.node);
    json.endObject();
  }
  json.endArray();
  json.endObject();
  json.finish();
}

void printEntries(std::ostream& out, const std::string& file) {
  constexpr int MAX_ENTRIES = 20;
  const ZipFileReader archive(toWidePath(readableFile(file)));
  const int shown = std::min(archive.getEntryCount(), MAX_ENTRIES);
  std::size_t width = 0;
  for (int i = 0; i < shown; ++i) {
    width = std::max(width, toPrintableLine(archive.getEntryName(i)).size());
  }
  for (int i = 0; i < shown; ++i) {
    const std::string name = archive.getEntryName(i);
    out << fmt::format("  {:{}}  {:>14}\n", toPrintableLine(name), width,
                       lum::describeSize(archive.getSize(name)));
  }
  if (shown < archive.getEntryCount()) {
    out << fmt::format("  ... and {} more\n", lum::groupDigits(archive.getEntryCount() - shown));
  }
}

/// The totals of all geometry in a graph.
std::string describeGeometry(lum::Node& root) {
  const auto counts = lum::GeometryCounts::ofGraph(root);
  const std::int64_t meshes = counts.getMeshes();
  return fmt::format("{}, {}, {}", meshes == 1 ? "1 mesh" : lum::groupDigits(meshes) + " meshes",
                     lum::withNoun(lum::groupDigits(counts.getPoints()), "point"),
                     lum::withNoun(lum::groupDigits(counts.getCells()), "cell"));
}

void printLog(std::ostream& out, const LogCapture::Log& log) {
  if (!log.findings.empty() || !log.lines.empty()) {
    out << "\nFindings:\n";
  }
  std::int64_t notes = 0;
  for (const Finding& finding : log.findings) {
    if (finding.getSeverity() > Severity::NOTE) {
      out << "  " << toPrintableLine(describe(finding)) << '\n';
    } else {
      ++notes;
    }
  }
  if (notes > 0) {
    out << fmt::format("  {}, which \"check\" lists\n", lum::withNoun(lum::groupDigits(notes), "note"));
  }
  for (const std::string& line : log.lines) {
    out << "  " << toPrintableLine(line) << '\n';
  }
}

const char* generationOf(const OpenedScene& scene) {
  return scene.kind == SceneKind::ARCHIVE ? "Scene archive of the old generation" : "Scene-graph database";
}

void printText(std::ostream& out, const std::string& file, const Contents& contents) {
  const OpenedScene& scene = contents.scene;
  const bool isArchive = scene.kind == SceneKind::ARCHIVE;
  std::error_code ignored;
  const auto size = std::filesystem::file_size(readableFile(file), ignored);
  out << fmt::format("{}\n{}, {}\n", toPrintableLine(file), generationOf(scene),
                     lum::describeSize(static_cast<double>(size)));
  if (isArchive) {
    printEntries(out, file);
  }
  printLog(out, contents.log);
  for (const OpenedScene::Record& record : scene.records) {
    out << '\n';
    if (!isArchive) {
      out << fmt::format("Record \"{}\", description \"{}\", simulation \"{}\"\n",
                         toPrintableLine(record.title), toPrintableLine(record.description),
                         toPrintableLine(record.simUUID));
    }
    out << describeGeometry(*record.node) << "\n\n";
    TreePrinter(out).print(*record.node);
  }
}

/// "wing.zip: Scene-graph database, 2 meshes, 30 points, 10 cells, 1 finding".
void printLine(std::ostream& out, const std::string& file, const Contents& contents) {
  out << fmt::format("{}: {}", toPrintableLine(file), generationOf(contents.scene));
  for (const OpenedScene::Record& record : contents.scene.records) {
    out << ", " << describeGeometry(*record.node);
  }
  out << fmt::format(", {}\n", lum::withNoun(std::to_string(contents.log.findings.size()), "finding"));
}

void info(const std::string& file, const InfoArguments& options) {
  const Contents contents = load(file);
  const bool isJson = options.json || options.values;
  if (isJson) {
    requireValuesInProportion(contents.scene, options.values);
  }
  ResultStream out;
  if (isJson) {
    printJson(out, file, contents, options);
  } else if (options.files.size() > 1) {
    printLine(out, file, contents);
  } else {
    printText(out, file, contents);
  }
  out.finish();
}

void summarize(const InfoArguments& options, const std::vector<ExitCode>& codes) {
  if (!options.json && !options.values) {
    const auto read = std::ranges::count(codes, ExitCode::DONE);
    ResultStream out;
    out << fmt::format("{} files: {} read, {} failed\n", codes.size(), read, std::ssize(codes) - read);
    out.finish();
  }
}

void addInfoCommand(CLI::App& app, Command& command) {
  const auto options = std::make_shared<InfoArguments>();
  CLI::App* const infoApp = app.add_subcommand(
      "info", "Print the format and content of a scene file; of several files, a line each");
  addFilesArgument(*infoApp, options->files);
  infoApp->add_flag("--json", options->json, "Print one JSON object for each FILE, for programs");
  infoApp->add_flag("--values", options->values, "Include all values of data arrays (implies --json)");
  addFailOnOption(*infoApp, command);
  infoApp->callback([options, &command] {
    for (const std::string& file : options->files) {
      command.jobs.push_back({file, [file, options] { info(file, *options); }});
    }
    command.summarize = [options](const std::vector<ExitCode>& codes) { summarize(*options, codes); };
  });
}

const Subcommand INFO(1, addInfoCommand);

}  // namespace

}  // namespace vemo
