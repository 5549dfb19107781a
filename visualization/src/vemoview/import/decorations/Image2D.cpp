#include "vemoview/import/reading/KeyTable.h"
#include <vemo/import/decorations/Image2D.h>

#include <utility>

namespace vemo {

const KeyTable<Image2D::Place> Image2D::KEYS(
    {
        key::ifPresent<&Image2D::Place::position>("position", "the lower left corner"),
        key::ifPresent<&Image2D::Place::size>("size", "`x` is the width and `y` the height"),
    },
    OnBadValue::WARN);

Image2D::Image2D(std::string name) : Image(std::move(name), lum::CoordinateSpace::WINDOW) {
  const Place place;
  setPlace(place.position, place.size);
}
Image2D::~Image2D() = default;

void Image2D::setPlace(const Vector<3, double>& position, const Vector<3, double>& size) {
  Image::setPlace(position, {size[0], 0.0, 0.0}, {0.0, size[1], 0.0});
}

void Image2D::readPlace(const QxElement& element, SceneFileReader* reader) {
  Place place;
  KEYS.read(place, element, reader);
  if (place.size[2] != 0.0) {
    ValueReader(element, reader, OnBadValue::WARN).reportWithoutEffect("size");
  }
  setPlace(place.position, place.size);
}

}  // namespace vemo
