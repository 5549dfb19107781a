#include "vemoview/import/xml/OptionalValues.h"
#include <vemo/import/items/Image3D.h>

#include <utility>

namespace vemo {

namespace {

constexpr Vector<3, double> DEFAULT_ORIGIN{0.0, 0.0, 0.0};
constexpr Vector<3, double> DEFAULT_X_AXIS{1.0, 0.0, 0.0};
constexpr Vector<3, double> DEFAULT_Y_AXIS{0.0, 1.0, 0.0};

}  // namespace

Image3D::Image3D(std::string name) : Image(std::move(name), lum::CoordinateSpace::MODEL) {
  setPlace(DEFAULT_ORIGIN, DEFAULT_X_AXIS, DEFAULT_Y_AXIS);
}
Image3D::~Image3D() = default;

void Image3D::readPlace(const OptionalValues& values) {
  setPlace(values.getVector3(XML_ORIGIN, DEFAULT_ORIGIN), values.getVector3(XML_X_AXIS, DEFAULT_X_AXIS),
           values.getVector3(XML_Y_AXIS, DEFAULT_Y_AXIS));
}

}  // namespace vemo
