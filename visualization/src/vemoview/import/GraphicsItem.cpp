#include "vemoview/import/GraphicsItem.h"

#include "scenegraph/drawables/Drawable.h"
#include "vemoview/import/QxElement.h"

GraphicsItem::GraphicsItem(std::string name) : SceneItem(name) {}
GraphicsItem::~GraphicsItem() = default;

void GraphicsItem::read(const QxElement& element, SceneFileReader* reader) {
  SceneItem::read(element, reader);
  readImpl(element, reader);
}

void GraphicsItem::readImpl(const QxElement& element, SceneFileReader* /*reader*/) {
  _visibility = element.getDouble(XML_ATTRIB_VISIBILITY);
}

void GraphicsItem::addVisibilityAttrib(lum::Drawable& drawable) const {
  drawable.getBaseAttributes().setVisibility(_visibility > VISIBILITY_THRESHOLD, false);
}
