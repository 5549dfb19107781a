#include "export/ExportFormat.h"

#include "export/database/DatabaseExport.h"
#include <vemo/scenegraph/io/SDBWriter.h>

#include <algorithm>
#include <fmt/format.h>

namespace vemo {

namespace {

constexpr ExportFormat FORMATS[] = {
    {{".sdb", "scene-graph database", lum::SDBWriter::SIGNATURE, false}, writeDatabase},
};

}  // namespace

const ExportFormat& findExportFormat(const std::string& output) {
  const auto* const found = std::ranges::find_if(
      FORMATS, [&](const ExportFormat& format) { return hasExtension(output, format.kind); });
  if (found != std::end(FORMATS)) {
    return *found;
  }
  rejectOtherExtension(output, listExportFormats());
  return FORMATS[0];
}

std::string listExportFormats() {
  std::string text;
  for (const ExportFormat& format : FORMATS) {
    text +=
        fmt::format("{}{} ({})", text.empty() ? "" : ", ", format.kind.description, format.kind.extension);
  }
  return text;
}

}  // namespace vemo
