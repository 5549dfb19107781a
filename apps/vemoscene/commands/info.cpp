#include "Command.h"
#include "LoadedScene.h"
#include "output/FindingPrinter.h"
#include "output/Messages.h"
#include "output/ResultStream.h"
#include "output/TreePrinter.h"
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
  std::string file;
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

void printJson(std::ostream& out, const Contents& contents, const InfoArguments& options) {
  const OpenedScene& scene = contents.scene;
  const bool isArchive = scene.kind == SceneKind::ARCHIVE;
  lum::JsonWriter json(out);
  const auto print = [&json](const char* name, const std::string& text) {
    json.key(name);
    json.value(text);
  };
  json.beginObject();
  print("path", options.file);
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
  const ZipFileReader archive(toWidePath(file));
  const int shown = std::min(archive.getEntryCount(), MAX_ENTRIES);
  std::size_t width = 0;
  for (int i = 0; i < shown; ++i) {
    width = std::max(width, toPrintable(archive.getEntryName(i)).size());
  }
  for (int i = 0; i < shown; ++i) {
    const std::string name = archive.getEntryName(i);
    out << fmt::format("  {:{}}  {:>14}\n", toPrintable(name), width,
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
  return fmt::format("{}, {} points, {} cells", meshes == 1 ? "1 mesh" : lum::groupDigits(meshes) + " meshes",
                     lum::groupDigits(counts.getPoints()), lum::groupDigits(counts.getCells()));
}

void printLog(std::ostream& out, const LogCapture::Log& log) {
  if (!log.findings.empty() || !log.lines.empty()) {
    out << "\nFindings:\n";
  }
  std::int64_t notes = 0;
  for (const Finding& finding : log.findings) {
    if (finding.getSeverity() > Severity::NOTE) {
      out << "  " << toPrintable(describe(finding)) << '\n';
    } else {
      ++notes;
    }
  }
  if (notes > 0) {
    out << fmt::format("  {} note{}, which \"check\" lists\n", lum::groupDigits(notes),
                       notes == 1 ? "" : "s");
  }
  for (const std::string& line : log.lines) {
    out << "  " << toPrintable(line) << '\n';
  }
}

void printText(std::ostream& out, const Contents& contents, const InfoArguments& options) {
  const OpenedScene& scene = contents.scene;
  const bool isArchive = scene.kind == SceneKind::ARCHIVE;
  std::error_code ignored;
  const auto size = std::filesystem::file_size(options.file, ignored);
  out << fmt::format("{}\n{}, {}\n", toPrintable(options.file),
                     isArchive ? "Scene archive of the old generation" : "Scene-graph database",
                     lum::describeSize(static_cast<double>(size)));
  if (isArchive) {
    printEntries(out, options.file);
  }
  printLog(out, contents.log);
  for (const OpenedScene::Record& record : scene.records) {
    out << '\n';
    if (!isArchive) {
      out << fmt::format("Record \"{}\", description \"{}\", simulation \"{}\"\n", toPrintable(record.title),
                         toPrintable(record.description), toPrintable(record.simUUID));
    }
    out << describeGeometry(*record.node) << "\n\n";
    TreePrinter(out).print(*record.node);
  }
}

void info(const InfoArguments& options) {
  const Contents contents = load(options.file);
  ResultStream out;
  if (options.json || options.values) {
    printJson(out, contents, options);
  } else {
    printText(out, contents, options);
  }
  out.finish();
}

void addInfoCommand(CLI::App& app, Command& command) {
  const auto options = std::make_shared<InfoArguments>();
  CLI::App* const infoApp = app.add_subcommand("info", "Print the format and content of a scene file");
  infoApp->add_option("FILE", options->file, "The scene archive or database to read")->required();
  infoApp->add_flag("--json", options->json, "Print one JSON object, for programs");
  infoApp->add_flag("--values", options->values, "Include all values of data arrays (implies --json)");
  addFailOnOption(*infoApp, command);
  infoApp->callback([options, &command] {
    command.file = options->file;
    command.run = [options] { info(*options); };
  });
}

const Subcommand INFO(1, addInfoCommand);

}  // namespace

}  // namespace vemo
