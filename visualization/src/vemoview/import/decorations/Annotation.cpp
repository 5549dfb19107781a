#include "vemoview/import/items/ItemDrawable.h"
#include "vemoview/import/xml/OptionalValues.h"
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/Annotation.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/drawables/Overlays.h>

#include <utility>

namespace vemo {

Annotation::Annotation(std::string name) : GraphicsItem(std::move(name)) {}
Annotation::~Annotation() = default;

void Annotation::setAlignment(lum::HorizontalAlignment horizontal, lum::VerticalAlignment vertical) {
  _horizontal = horizontal;
  _vertical = vertical;
}

void Annotation::read(const QxElement& element, SceneFileReader* reader) {
  checkVersionOfExtra(element, reader);
  GraphicsItem::read(element, reader);
  const OptionalValues values(element, reader);
  _text = values.getString(XML_ATTRIB_TEXT, _text);
  _mode = static_cast<lum::CoordinateSpace>(values.getRow(XML_ATTRIB_MODE, MODES, 0));
  setAlignment(static_cast<lum::HorizontalAlignment>(
                   values.getRow(XML_ATTRIB_HORIZONTAL_ALIGNMENT, HORIZONTAL_ALIGNMENTS, 0)),
               static_cast<lum::VerticalAlignment>(
                   values.getRow(XML_ATTRIB_VERTICAL_ALIGNMENT, VERTICAL_ALIGNMENTS, 0)));
  _position = values.getVector3(XML_POSITION, _position);
  _textHeight = values.getDouble(XML_ATTRIB_TEXT_HEIGHT, _textHeight);
  values.getFont(_font);
}

void Annotation::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int /*level*/,
                                 const std::string& /*parentName*/) const {
  if (_text.empty()) {
    VEMO_LOG_WARNING("The annotation \"" << getName() << "\" has no text and is left out");
    return;
  }
  const bool inWindow = _mode == lum::CoordinateSpace::WINDOW;
  auto& drawable = drawableOf<lum::TextDrawable>(
      *this, inWindow ? shared.sceneNode->getForegroundCanvas().getDrawableCollection() : collection);
  addVisibilityAttrib(drawable);
  drawable.getPositionAttributes().setPosition(_position, false);
  lum::AnnotationAttributes& attributes = drawable.getAnnotationAttributes();
  attributes.setText(_text);
  attributes.setCoordinateSpace(_mode);
  attributes.setHorizontalAlignment(_horizontal);
  attributes.setVerticalAlignment(_vertical);
  _font.applyTo(drawable.getTextAttributes());
  drawable.getTextAttributes().setFontSize(_textHeight);
}

}  // namespace vemo
