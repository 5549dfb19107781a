#pragma once

#include <vemo/scenegraph/Export.h>
#include <vemo/scenegraph/FindingKinds.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vemo {

/// How much a finding matters; ordered.
enum class Severity {
  NOTE,     ///< Nothing that the scene graph has a place for is missing.
  CHANGED,  ///< Something is there, but not as the file says.
  LOST,     ///< Something in the file is not in the result.
  REFUSED,  ///< There is no result.
};

enum class FindingCode {
#define VEMO_FINDING_CODE(name, severity, meaning) name,
  VEMO_FINDING_KINDS(VEMO_FINDING_CODE)
#undef VEMO_FINDING_CODE
};

/// What all findings of one code have in common.
struct FindingKind {
  FindingCode code;
  Severity severity;
  /// As "array-left-out".
  std::string name;
  /// In Markdown.
  std::string meaning;
};

/// All kinds, sorted by name.
VEMO_SCENEGRAPH_EXPORT std::span<const FindingKind> findingKinds();

/// "note", "changed", "lost" or "refused".
VEMO_SCENEGRAPH_EXPORT std::string_view severityName(Severity severity);
VEMO_SCENEGRAPH_EXPORT std::optional<Severity> parseSeverity(std::string_view name);

/// Something that reading, converting, writing or drawing a scene has to report,
/// and where.
struct VEMO_SCENEGRAPH_EXPORT Finding {
  FindingCode code{};
  /// A sentence without a full stop.
  std::string text{};
  /// The archive entry concerned; empty when there is none.
  std::string entry{};
  /// As "scene/wing/pressure"; empty when unknown.
  std::string itemPath{};
  /// Of the scene description; 0 when unknown.
  int line = 0;
  /// Of the element on that line; empty when the finding is about all of it.
  std::string attribute{};
  /// The number of the element, from 1 in document order; 0 when unknown.
  int element = 0;
  /// Of the node that is drawn, as JsonPrinter.h describes; empty when the finding is
  /// not about drawing one.
  std::string nodePath{};

  const FindingKind& getKind() const;
  Severity getSeverity() const { return getKind().severity; }
};

/// The known ones in words: "item scene/wing, attribute 'points', line 3 of the
/// scene description, entry 'p.bin'"; empty without any.
VEMO_SCENEGRAPH_EXPORT std::string describePlace(const std::string& itemPath, int line,
                                                 const std::string& entry, const std::string& attribute,
                                                 const std::string& nodePath = {});

/// For people: "lost: The array ... (array-left-out; item scene/wing)".
VEMO_SCENEGRAPH_EXPORT std::string describe(const Finding& finding);

}  // namespace vemo
