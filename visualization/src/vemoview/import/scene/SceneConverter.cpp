#include "vemoview/import/scene/SceneImport.h"
#include <vemo/base/WideStream.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/io/SDBWriter.h>

namespace vemo {

SceneConverter::SceneConverter(const std::wstring& inputPath, const std::wstring& outputPath)
    : _inputPath(inputPath), _outputPath(outputPath) {}

void SceneConverter::setObserver(Observer observer) {
  _observer = std::move(observer);
}

void SceneConverter::run() const {
  VEMO_LOG_INFO("Reading a file\n\t" << _inputPath << ", converting it, and writing to\n\t" << _outputPath);
  SceneImport import(_inputPath);
  import.read();
  VEMO_LOG_INFO("\nThe scene has been read\nParsing...");
  lum::SceneNode& sceneNode = import.convert();
  VEMO_LOG_INFO("sceneNode with name \"" << sceneNode.getName() << "\" is here!");
  if (!write(sceneNode)) {
    VEMO_LOG_ERROR("Can't open file for writing");
    import.leaveSessionOpen();
    return;
  }
  if (_observer) {
    _observer(sceneNode);
  }
  import.close();
  VEMO_LOG_INFO("done");
}

bool SceneConverter::write(lum::SceneNode& sceneNode) const {
  lum::SDBWriter writer;
  if (writer.open(_outputPath, false, false) != lum::io::FileIoStatus::Success) {
    return false;
  }
  int recordNumber = 0;
  writer.addRecord("title", "description", "simUUID", sceneNode, recordNumber);
  writer.close();
  return true;
}

}  // namespace vemo
