#include <vemo/scenegraph/Finding.h>

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <iterator>

namespace vemo {

namespace {

constexpr std::array<std::string_view, 4> SEVERITIES = {"note", "changed", "lost", "refused"};

/// "ARRAY_LEFT_OUT" becomes "array-left-out", in every locale.
std::string codeName(std::string_view enumerator) {
  std::string name;
  std::ranges::transform(enumerator, std::back_inserter(name), [](char letter) {
    return letter == '_' ? '-' : static_cast<char>(letter - 'A' + 'a');
  });
  return name;
}

}  // namespace

std::span<const FindingKind> findingKinds() {
  static const auto& kinds = *new std::array{
#define VEMO_FINDING_KIND(name, severity, meaning) \
  FindingKind{FindingCode::name, Severity::severity, codeName(#name), meaning},
      VEMO_FINDING_KINDS(VEMO_FINDING_KIND)
#undef VEMO_FINDING_KIND
  };
  return kinds;
}

std::string_view severityName(Severity severity) {
  return SEVERITIES[static_cast<std::size_t>(severity)];
}

std::optional<Severity> parseSeverity(std::string_view name) {
  const auto found = std::ranges::find(SEVERITIES, name);
  return found == SEVERITIES.end() ? std::nullopt
                                   : std::optional(static_cast<Severity>(found - SEVERITIES.begin()));
}

const FindingKind& Finding::getKind() const {
  return findingKinds()[static_cast<std::size_t>(code)];
}

std::string describePlace(const std::string& itemPath, int line, const std::string& entry,
                          const std::string& attribute, const std::string& nodePath) {
  std::string place;
  const auto add = [&place](const std::string& part) { place += (place.empty() ? "" : ", ") + part; };
  if (!itemPath.empty()) {
    add("item " + itemPath);
  }
  if (!attribute.empty()) {
    add("attribute '" + attribute + "'");
  }
  if (line > 0) {
    add("line " + std::to_string(line) + " of the scene description");
  }
  if (!entry.empty()) {
    add("entry '" + entry + "'");
  }
  if (!nodePath.empty()) {
    add("node " + nodePath);
  }
  return place;
}

std::string describe(const Finding& finding) {
  const FindingKind& kind = finding.getKind();
  // The texts of others name the attribute.
  const std::string attribute = kind.severity == Severity::REFUSED ? finding.attribute : std::string();
  const std::string place =
      describePlace(finding.itemPath, finding.line, finding.entry, attribute, finding.nodePath);
  std::string line = fmt::format("{}: {} ({}{}{})", severityName(kind.severity), finding.text, kind.name,
                                 place.empty() ? "" : "; ", place);
  // A name with a line break could otherwise look like another finding.
  std::ranges::replace(line, '\n', ' ');
  return line;
}

}  // namespace vemo
