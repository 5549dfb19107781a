// From a scene description to items.

#include "Fuzzing.h"
#include "SceneText.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/SceneLedger.h>
#include <vemo/import/scene/Scene.h>

#include <span>
#include <vector>

namespace vemo {

namespace {

/// Of elements, attributes and texts, in the order of the ledger's rows: whether
/// something read them.
void appendRead(const QxElement& element, std::vector<bool>& isRead) {
  isRead.push_back(element.isRead());
  for (const QxElement::Attribute& attribute : element.getAttributes()) {
    isRead.push_back(attribute.isRead() || attribute.getName().starts_with("xml"));
  }
  if (element.hasText()) {
    isRead.push_back(element.isTextRead());
  }
  for (const auto& child : element.getChildren()) {
    appendRead(*child, isRead);
  }
}

}  // namespace

void readInput(const std::string& input) {
  const auto archive = buildArchive(input);
  SceneFileReader reader{ZipFileReader(std::as_bytes(std::span(archive)))};
  reader.collectFaults();
  reader.keepDescription();
  std::unique_ptr<Scene> scene;
  reader.read(scene);
  require(reader.countFaults() > 0 || reader.getDescription()->isRead(), "The scene is not read");

  std::vector<bool> isRead;
  appendRead(*reader.getDescription(), isRead);
  std::size_t rows = 0;
  std::size_t losses = 0;
  std::size_t reasons = 0;
  SceneLedger(reader).list([&](const LedgerRow& row) {
    require(rows >= isRead.size() || isRead[rows] || row.outcome > Outcome::UNUSED,
            "The ledger has \"" + row.path + "\" " + row.attribute + ", which nothing read, as kept");
    ++rows;
    losses += row.outcome > Outcome::UNUSED ? 1 : 0;
    reasons += row.findings.size();
  });
  require(rows == isRead.size() + static_cast<std::size_t>(reader.getArchive().getEntryCount()),
          "The ledger has not all parts");
  require(losses == 0 || reasons > 0, "Something is lost in silence");
}

}  // namespace vemo
