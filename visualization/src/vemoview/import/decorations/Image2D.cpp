#include "vemoview/import/reading/KeyTable.h"
#include <vemo/import/decorations/Image2D.h>

#include <utility>

namespace vemo {

const KeyTable<Image2D::Rectangle> Image2D::KEYS(
    {
        key::ifPresent<&Image2D::Rectangle::position>("position", "the lower left corner"),
        key::ifPresent<&Image2D::Rectangle::size>("size", "`x` is the width and `y` the height"),
    },
    OnBadValue::WARN);

Image2D::Image2D(std::string name) : Image(std::move(name), lum::CoordinateSpace::WINDOW) {
  const Rectangle rectangle;
  setRectangle(rectangle.position, rectangle.size);
}
Image2D::~Image2D() = default;

void Image2D::setRectangle(const Vector<3, double>& position, const Vector<3, double>& size) {
  Image::setQuad(position, {size[0], 0.0, 0.0}, {0.0, size[1], 0.0});
}

void Image2D::readQuad(const QxElement& element, SceneFileReader* reader) {
  Rectangle rectangle;
  KEYS.read(rectangle, element, reader);
  const ValueReader values(element, reader, OnBadValue::WARN);
  // It may be meant for the model if the coordinate system is one that is ignored.
  if (values.isAbsentOr(COORDINATE_SYSTEMS[0], XML_ATTRIB_SPACE)) {
    values.reportDepthWithoutEffect("position", rectangle.position[2]);
  }
  values.reportDepthWithoutEffect("size", rectangle.size[2]);
  setRectangle(rectangle.position, rectangle.size);
}

}  // namespace vemo
