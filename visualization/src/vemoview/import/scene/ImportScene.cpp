#include "vemoview/import/scene/SceneImport.h"
#include <vemo/import/ImportScene.h>

namespace vemo {

lum::Ptr<lum::SceneNode> importScene(const std::wstring& path) {
  SceneImport import(path);
  import.read();
  return lum::Ptr<lum::SceneNode>(&import.convert());
}

}  // namespace vemo
