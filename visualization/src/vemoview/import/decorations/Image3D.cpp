#include "vemoview/import/reading/KeyTable.h"
#include <vemo/import/decorations/Image3D.h>

#include <utility>

namespace vemo {

const KeyTable<Image3D::Place> Image3D::KEYS(
    {
        key::ifPresent<&Image3D::Place::origin>("origin", "the lower left corner"),
        key::ifPresent<&Image3D::Place::xAxis>("xaxis", "from there to the lower right corner"),
        key::ifPresent<&Image3D::Place::yAxis>("yaxis", "from there to the upper left corner"),
    },
    OnBadValue::WARN);

Image3D::Image3D(std::string name) : Image(std::move(name), lum::CoordinateSpace::MODEL) {
  const Place place;
  setPlace(place.origin, place.xAxis, place.yAxis);
}
Image3D::~Image3D() = default;

void Image3D::readPlace(const QxElement& element, SceneFileReader* reader) {
  Place place;
  KEYS.read(place, element, reader);
  setPlace(place.origin, place.xAxis, place.yAxis);
}

}  // namespace vemo
