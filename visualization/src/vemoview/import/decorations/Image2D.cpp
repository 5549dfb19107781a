#include "vemoview/import/xml/OptionalValues.h"
#include <vemo/import/items/Image2D.h>

#include <utility>

namespace vemo {

namespace {

constexpr Vector<3, double> DEFAULT_POSITION{0.0, 0.0, 0.0};
constexpr Vector<3, double> DEFAULT_SIZE{0.2, 0.2, 0.0};

}  // namespace

Image2D::Image2D(std::string name) : Image(std::move(name), lum::CoordinateSpace::WINDOW) {
  setPlace(DEFAULT_POSITION, DEFAULT_SIZE);
}
Image2D::~Image2D() = default;

void Image2D::setPlace(const Vector<3, double>& position, const Vector<3, double>& size) {
  Image::setPlace(position, {size[0], 0.0, 0.0}, {0.0, size[1], 0.0});
}

void Image2D::readPlace(const OptionalValues& values) {
  setPlace(values.getVector3(XML_POSITION, DEFAULT_POSITION), values.getVector3(XML_SIZE, DEFAULT_SIZE));
}

}  // namespace vemo
