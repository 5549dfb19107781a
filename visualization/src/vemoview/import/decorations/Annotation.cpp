#include "base/Utf8.h"
#include "vemoview/import/items/ItemDrawable.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/ReadingContext.h"
#include <vemo/import/decorations/Annotation.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>

#include <utility>

namespace vemo {

const KeyTable<Annotation> Annotation::KEYS(
    {
        key::ifPresent<&Annotation::_text>("text", "UTF-8; `&#10;` breaks the line"),
        key::always<&Annotation::_mode>("mode", "what the position is given in").named(MODES),
        key::always<&Annotation::_horizontal>("horizontalAlignment",
                                              "which side of the text is at the position")
            .named(HORIZONTAL_ALIGNMENTS),
        key::always<&Annotation::_vertical>("verticalAlignment", "likewise").named(VERTICAL_ALIGNMENTS),
        key::ifPresent<&Annotation::_position>(
            "position",
            "fractions of the window's width and height from its lower left corner, or model coordinates"),
        key::ifPresent<&Annotation::_textHeight>(
            "textHeight",
            "from 0 to 1: the height of a line as a fraction of the window's; 0: the renderer's own")
            .inRange(0, 1),
        key::ifPresent<&Annotation::_font>(Font::XML_ENTITY, "see `font`").defaultingTo("black Arial"),
    },
    OnBadValue::WARN);

Annotation::Annotation(std::string name) : GraphicsItem(std::move(name)) {}
Annotation::~Annotation() = default;

void Annotation::setAlignment(lum::HorizontalAlignment horizontal, lum::VerticalAlignment vertical) {
  _horizontal = horizontal;
  _vertical = vertical;
}

void Annotation::read(const QxElement& element, SceneFileReader* reader) {
  KEYS.readElement<GraphicsItem>(*this, element, reader);
  const ValueReader values(element, reader, OnBadValue::WARN);
  // It may be meant for the model if the mode is one that is ignored.
  if (values.isAbsentOr(MODES[0], "mode")) {
    values.reportDepthWithoutEffect("position", _position[2]);
  }
}

void Annotation::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int /*level*/,
                                 const std::string& /*parentName*/) const {
  if (isBlank(_text)) {
    report(shared.context, FindingCode::ANNOTATION_WITHOUT_TEXT,
           "The annotation " + ReadingContext::quoted(getName()) + " has no text and is left out");
    return;
  }
  const bool inWindow = _mode == lum::CoordinateSpace::WINDOW;
  auto& drawable = addDrawable<lum::TextDrawable>(
      getName(), inWindow ? shared.sceneNode->getForegroundCanvas().getDrawableCollection() : collection);
  addVisibilityAttrib(drawable, inWindow ? shared.isHidden : shared.hidesItemsIndividually);
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
