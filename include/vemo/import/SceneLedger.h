#pragma once

#include <vemo/import/Export.h>
#include <vemo/scenegraph/Finding.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vemo {

class SceneFileReader;

/// What became of a part of an old scene in the new generation.
enum class Outcome {
  KEPT,     ///< It is in the scene graph.
  UNUSED,   ///< It is not needed: a face colour of lines, for instance.
  CHANGED,  ///< It is there, but not as the file says.
  LOST,     ///< It is not in the scene graph.
  UNKNOWN,  ///< It is not part of the format, and ignored.
  REFUSED,  ///< Because of it, or of what it is in, there is no scene graph.
};
inline constexpr std::size_t OUTCOME_COUNT = 6;

/// "kept", "unused", "changed", "lost", "unknown" or "refused".
VEMO_IMPORT_EXPORT std::string_view outcomeName(Outcome outcome);

/// One element or attribute of the scene description, or one entry of the
/// archive.
struct LedgerRow {
  Outcome outcome = Outcome::KEPT;
  /// Of the element, as in findings: "scene/wing/view"; empty for an entry.
  std::string path;
  /// The name of the element; empty for an entry.
  std::string element;
  int line = 0;
  /// Empty for the element itself.
  std::string attribute;
  std::string value;
  std::string entry;
  /// Why it is not kept.
  std::vector<FindingCode> findings;
};

/// What became of an old scene that was read and converted, part by part.
class VEMO_IMPORT_EXPORT SceneLedger {
 public:
  using Sink = std::function<void(const LedgerRow& row)>;

  /// @param reader that keeps the description and collects faults; must outlive
  /// the ledger
  explicit SceneLedger(const SceneFileReader& reader);

  /// Lists the whole description in document order, then the entries.
  void list(const Sink& sink) const;

 private:
  void listEntries(const Sink& sink) const;

  const SceneFileReader& _reader;
};

}  // namespace vemo
