// The part of the SceneFileReader that depends on the items.

#include "vemoview/import/reading/SceneFileReader.h"
#include "vemoview/import/scene/UnreadContent.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>
#include <vemo/import/scene/Scene.h>
#include <vemo/import/xml/QxElement.h>
#include <vemo/scenegraph/Logger.h>

namespace vemo {

namespace {

void reportDirectory(SceneFileReader& reader) {
  if (reader.getArchive().isMiscounted()) {
    reader.report(FindingCode::ENTRIES_NOT_COUNTED,
                  "The archive has more entries than it states; the others are not read");
  }
  if (reader.getArchive().hasOtherInFront()) {
    reader.report(FindingCode::ENTRIES_NOT_COUNTED,
                  "Another archive is in front of the archive; its entries are not read");
  }
  for (const std::string& name : reader.getArchive().getDuplicateNames()) {
    reader.report(FindingCode::ENTRY_REPLACED,
                  "Several entries of the archive have this name; the last one is used", name);
  }
}

/// The scene graph that the archive may carry beside its items.
void readPayload(Scene& scene, SceneFileReader& reader) {
  const ZipFileReader& archive = reader.getArchive();
  if (archive.getSize(SceneFileReader::LUM_SCENE_ENTRY) < 0) {
    return;
  }
  scene.setLUMSceneFile(reader.readEntry(SceneFileReader::LUM_SCENE_ENTRY));
  if (scene.getLUMSceneFile().count == 0) {
    reader.report(FindingCode::PAYLOAD_DAMAGED, "The scene graph in the archive is empty; the items are used",
                  SceneFileReader::LUM_SCENE_ENTRY);
  }
  for (const std::string& name : reader.getPayloadEntries()) {
    ArrayOwner data(reader.readEntry(name));
    scene.addLUMDataFile(data.get());
    static_cast<void>(data.release());
  }
}

}  // namespace

void SceneFileReader::readItems(Scene& scene) {
  _description = readXml(SCENE_ENTRY);
  _description->markRead();
  const ItemScope scope(this, Scene::XML_ENTITY, _description->getPlace());
  const UnusedScope unused(*this, hasPayload());
  if (_description->getName() != Scene::XML_ENTITY) {
    report(FindingCode::ROOT_UNKNOWN, "The root element \"" + shortened(_description->getName()) +
                                          "\" is read as a \"" + Scene::XML_ENTITY + '"');
  }
  attempt([&] { scene.read(*_description, this); });
}

std::unique_ptr<Scene>& SceneFileReader::read(std::unique_ptr<Scene>& result) {
  result = std::make_unique<Scene>(std::string());
  reportDirectory(*this);
  callAndLocateFailures([&] { readItems(*result); });
  VEMO_LOG_INFO("SceneFileReader::read: " << getArchive().getEntryCount() << " entries found inside");
  readPayload(*result, *this);
  reportUnreadContent(*_description, *this);
  getDecoded().clear();
  if (!_keepsDescription) {
    dropDescription();
  }
  return result;
}

}  // namespace vemo
