#include "vemoview/import/Legend.h"

#include "scenegraph/Logger.h"

#include <utility>

Legend::Legend(std::string name) : GraphicsItem(std::move(name)) {}
Legend::~Legend() = default;

void Legend::read(const QxElement& element, SceneFileReader* reader) {
  checkVersionOfExtra(element, reader);
  GraphicsItem::read(element, reader);
}

void Legend::addToCollection(SharedBySiblings& /*shared*/, lum::DrawableCollection& /*collection*/,
                             int /*level*/, const std::string& parentName) const {
  VEMO_LOG_WARNING("The legend of \"" << parentName << "\" is left out of the converted scene");
}
