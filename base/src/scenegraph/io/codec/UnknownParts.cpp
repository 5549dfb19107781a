#include "scenegraph/io/codec/UnknownParts.h"

#include "base/Utf8.h"
#include <vemo/scenegraph/Findings.h>

#include <algorithm>
#include <fmt/format.h>

namespace lum::io {

namespace {

constexpr std::size_t MAX_FINDINGS = 100;
constexpr std::size_t MAX_FIELD_NAMES = 8;

std::string describeUnknownClass(const FileClass& fileClass, std::size_t nodeCount) {
  const std::string name = vemo::shortName(fileClass.name);
  return nodeCount == 1
             ? fmt::format("A node of class {}, which is unknown here, is left out with all that it owns",
                           name)
             : fmt::format("{} nodes of class {}, which is unknown here, are left out with all that they own",
                           nodeCount, name);
}

std::string describeUnknownFields(const TableReader& tables, const FileClass& fileClass,
                                  std::size_t nodeCount) {
  const std::size_t count = fileClass.unknownFields.size();
  std::string names;
  for (std::size_t i = 0; i < std::min(count, MAX_FIELD_NAMES); ++i) {
    names += (i > 0 ? ", " : "") + vemo::shortName(tables.getString(fileClass.unknownFields[i]));
  }
  if (count > MAX_FIELD_NAMES) {
    names += fmt::format(" and {} more", count - MAX_FIELD_NAMES);
  }
  return fmt::format("Fields of class {} are unknown here and are left out of {} node{}: {}",
                     vemo::shortName(fileClass.name), nodeCount, nodeCount == 1 ? "" : "s", names);
}

}  // namespace

void UnknownParts::report(const TableReader& tables, const std::map<std::size_t, std::size_t>& nodeCounts) {
  for (const auto& [number, nodeCount] : nodeCounts) {
    const FileClass& fileClass = tables.getClasses()[number];
    if (fileClass.construct == nullptr) {
      reportOnce(vemo::FindingCode::CLASS_UNKNOWN, describeUnknownClass(fileClass, nodeCount));
    } else if (!fileClass.unknownFields.empty()) {
      reportOnce(vemo::FindingCode::FIELD_UNKNOWN, describeUnknownFields(tables, fileClass, nodeCount));
    }
  }
}

void UnknownParts::reportOnce(vemo::FindingCode code, const std::string& text) {
  if (_reported.size() > MAX_FINDINGS || !_reported.insert(text).second) {
    return;
  }
  vemo::reportFinding(code, _reported.size() <= MAX_FINDINGS
                                ? text
                                : "There are more classes and fields that are unknown here");
}

}  // namespace lum::io
