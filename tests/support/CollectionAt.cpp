#include "support/CollectionAt.h"

#include <vemo/base/InternalError.h>

#include <sstream>

namespace vemo {

lum::DrawableCollection& collectionAt(lum::SceneNode& scene, const std::string& path) {
  lum::DrawableCollection* found = &scene.getModelCanvas().getDrawableCollection();
  std::istringstream names(path);
  for (std::string name; std::getline(names, name, '/');) {
    found = found->find<lum::DrawableCollection>(name);
    VEMO_REQUIRE(found, "There is no collection " + path);
  }
  return *found;
}

}  // namespace vemo
