// From a scene description to items.

#include "Fuzzing.h"
#include "SceneText.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/SceneLedger.h>
#include <vemo/import/scene/Scene.h>

namespace vemo {

namespace {

/// Elements, attributes and texts, as the ledger has rows for them.
std::size_t countParts(const QxElement& element) {
  std::size_t count = 1 + element.getAttributes().size() + (element.hasText() ? 1 : 0);
  for (const auto& child : element.getChildren()) {
    count += countParts(*child);
  }
  return count;
}

}  // namespace

void readInput(const std::string& input) {
  SceneFileReader reader{ZipFileReader(writeArchive(input))};
  reader.collectFaults();
  reader.keepDescription();
  std::unique_ptr<Scene> scene;
  reader.read(scene);
  require(reader.countFaults() > 0 || reader.getDescription()->isRead(), "The scene is not read");

  std::size_t rows = 0;
  std::size_t losses = 0;
  std::size_t reasons = 0;
  SceneLedger(reader).list([&](const LedgerRow& row) {
    ++rows;
    losses += row.outcome > Outcome::UNUSED ? 1 : 0;
    reasons += row.findings.size();
  });
  require(rows == countParts(*reader.getDescription()) +
                      static_cast<std::size_t>(reader.getArchive().getEntryCount()),
          "The ledger has not all parts");
  require(losses == 0 || reasons > 0, "Something is lost in silence");
}

}  // namespace vemo
