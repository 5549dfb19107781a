#include "vemoview/import/reading/SceneFileReader.h"

#include "vemoview/import/Failure.h"
#include "vemoview/import/reading/DescriptionWalk.h"
#include "vemoview/import/xml/XmlParser.h"
#include <vemo/import/xml/QxElement.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace vemo {

const std::string SceneFileReader::SCENE_ENTRY = "scene.xml";
const std::string SceneFileReader::LUM_SCENE_ENTRY = "scene.lum";
const std::string SceneFileReader::LUM_ENTRY_PREFIX = "lum";

SceneFileReader::SceneFileReader(ZipFileReader archive) : ArchiveReader(std::move(archive)) {}

std::unique_ptr<QxElement> SceneFileReader::readXml(const std::string& entryName) {
  const ReadingLimits limits = getLimits();
  // Before it is inflated.
  if (getArchive().getSize(entryName) > static_cast<std::int64_t>(limits.descriptionBytes)) {
    failAt<IOException>(
        "Entry '" + entryName + "' is larger than the description in an archive of this size should be",
        entryName);
  }
  getProgress().startPhase(DESCRIPTION_READ,
                           2 * static_cast<std::uint64_t>(std::max(getArchive().getSize(entryName), 0)));
  const ArrayOwner<unsigned char> text(readEntry(entryName));
  XmlDocument document = parseXml(text.values(), entryName, limits, &getProgress());
  if (document.hasDeclarationsOutside) {
    report(FindingCode::DECLARATIONS_NOT_READ,
           "The description refers to entities or declarations in other files, which are not read",
           entryName);
  }
  startReadingEntries(document.elementCount);
  return std::move(document.root);
}

void SceneFileReader::startReadingEntries(int elementCount) {
  std::uint64_t units = static_cast<std::uint64_t>(elementCount) * BYTES_PER_ITEM;
  for (int i = 0; i < getArchive().getEntryCount(); ++i) {
    units += static_cast<std::uint64_t>(std::max(getArchive().getSize(getArchive().getEntryName(i)), 0));
  }
  getProgress().startPhase(ENTRIES_READ, units);
}

void SceneFileReader::dropUnlessNeeded(QxElement& element) const {
  if (!_keepsDescription && element.isWhollyRead()) {
    element.dropContent();
  }
}

bool SceneFileReader::namesEntries(const QxElement& element) const {
  std::set<std::string> names;
  addEntriesOf(element, names);
  return !names.empty();
}

void SceneFileReader::dropDescription() {
  _description.reset();
  forgetUses();
}

void SceneFileReader::excuseEntriesOf(const QxElement& element) {
  addEntriesOf(element, _excused);
}

void SceneFileReader::loseEntriesOf(const QxElement& element) {
  addEntriesOf(element, _lost);
}

bool SceneFileReader::startPart(const QxElement& geometry) {
  if (!_wantsPart) {
    return true;
  }
  _parts.push_back({geometry.getPlace().number, {}});
  addEntriesOf(geometry, _parts.back().entries);
  if (!hasPayload() && _wantsPart(_parts.size() - 1)) {
    return true;
  }
  excuseEntriesOf(geometry);
  return false;
}

bool SceneFileReader::isReplaced(const std::string& entryName) const {
  return hasPayload() && entryName != LUM_SCENE_ENTRY && !entryName.starts_with(LUM_ENTRY_PREFIX);
}

std::vector<std::string> SceneFileReader::getPayloadEntries() const {
  std::vector<std::string> entries;
  for (int i = 0; i < getArchive().getEntryCount(); ++i) {
    const std::string name = getArchive().getEntryName(i);
    if (name.starts_with(LUM_ENTRY_PREFIX)) {
      entries.push_back(name);
    }
  }
  return entries;
}

void SceneFileReader::addEntriesOf(const QxElement& element, std::set<std::string>& names) const {
  walkDescription(element, [&](const PlacedElement& place) {
    for (const QxElement::Attribute& attribute : place.element->getAttributes()) {
      if (getArchive().getSize(attribute.getValue()) >= 0) {
        names.insert(attribute.getValue());
      }
    }
    return true;
  });
}

void SceneFileReader::reportFlaws(const ZipFileReader::ContentFlaws& flaws, const std::string& entryName) {
  if (flaws.bytesRead) {
    report(FindingCode::ENTRY_SHORT,
           "The entry has only " + std::to_string(*flaws.bytesRead) + " of " +
               std::to_string(getArchive().getSize(entryName)) + " bytes; the rest is filled with zeros",
           entryName);
  }
  // What is missing makes the checksum wrong.
  if (flaws.isChecksumWrong && !flaws.bytesRead) {
    report(FindingCode::CHECKSUM_WRONG, "The checksum of the entry is wrong: its content may be damaged",
           entryName);
  }
}

}  // namespace vemo
