#include "export/ExportFormat.h"

#include "export/database/DatabaseExport.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <string_view>

namespace vemo {

namespace {

constexpr ExportFormat FORMATS[] = {
    {".sdb", "scene-graph database", writeDatabase},
};

bool endsWithIgnoringCase(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && std::ranges::equal(
                                             text.substr(text.size() - ending.size()), ending, {},
                                             [](unsigned char c) { return std::tolower(c); },
                                             [](unsigned char c) { return std::tolower(c); });
}

}  // namespace

const ExportFormat& findExportFormat(const std::string& output) {
  const auto* const found = std::ranges::find_if(
      FORMATS, [&](const ExportFormat& format) { return endsWithIgnoringCase(output, format.ending); });
  return found != std::end(FORMATS) ? *found : FORMATS[0];
}

std::string listExportFormats() {
  std::string text;
  for (const ExportFormat& format : FORMATS) {
    text += fmt::format("{}{} ({}{})", text.empty() ? "" : ", ", format.description, format.ending,
                        &format == FORMATS ? " and other endings" : "");
  }
  return text;
}

}  // namespace vemo
