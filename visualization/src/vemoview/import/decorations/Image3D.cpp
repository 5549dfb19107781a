#include "vemoview/import/reading/KeyTable.h"
#include <vemo/import/decorations/Image3D.h>

#include <utility>

namespace vemo {

const KeyTable<Image3D::Quad> Image3D::KEYS(
    {
        key::ifPresent<&Image3D::Quad::origin>("origin", "the lower left corner"),
        key::ifPresent<&Image3D::Quad::xAxis>("xaxis", "from there to the lower right corner"),
        key::ifPresent<&Image3D::Quad::yAxis>("yaxis", "from there to the upper left corner"),
    },
    OnBadValue::WARN);

Image3D::Image3D(std::string name) : Image(std::move(name), lum::CoordinateSpace::MODEL) {
  const Quad quad;
  setQuad(quad.origin, quad.xAxis, quad.yAxis);
}
Image3D::~Image3D() = default;

void Image3D::readQuad(const QxElement& element, SceneFileReader* reader) {
  Quad quad;
  KEYS.read(quad, element, reader);
  if (isInWindow()) {
    const ValueReader values(element, reader, OnBadValue::WARN);
    values.reportDepthWithoutEffect("origin", quad.origin[2]);
    values.reportDepthWithoutEffect("xaxis", quad.xAxis[2]);
    values.reportDepthWithoutEffect("yaxis", quad.yAxis[2]);
  }
  setQuad(quad.origin, quad.xAxis, quad.yAxis);
}

}  // namespace vemo
