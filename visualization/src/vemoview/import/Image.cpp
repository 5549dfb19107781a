#include "vemoview/import/Image.h"

#include "scenegraph/Logger.h"

#include <utility>

Image::Image(std::string name) : GraphicsItem(std::move(name)) {}
Image::~Image() = default;

void Image::read(const QxElement& element, SceneFileReader* reader) {
  checkVersionOfExtra(element, reader);
  GraphicsItem::read(element, reader);
}

void Image::addToCollection(SharedBySiblings& /*shared*/, lum::DrawableCollection& /*collection*/,
                            int /*level*/, const std::string& /*parentName*/) const {
  VEMO_LOG_WARNING("The image \"" << getName() << "\" is left out of the converted scene");
}
