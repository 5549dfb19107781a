#include "vemoview/resolve/decorations/ImageResolver.h"

#include "geometry/Box.h"
#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/attributes/PositionAttributes.h>
#include <vemo/scenegraph/coloring/ColorAttributes.h>
#include <vemo/scenegraph/drawables/ImageDrawable.h>

#include <vtkDataArray.h>

#include <algorithm>

namespace vemo {

namespace {

/// Larger than any that OpenGL accepts.
constexpr std::int32_t MAX_SIZE = 16384;

/// Also false for corners that are not numbers.
bool spansArea(const ImageDecoration& image, const Box& bounds) {
  const double area = length(cross(image.xAxis, image.yAxis));
  return area > 0.0 && bounds.longestSide() >= lum::LEAST_DISTANCE && isInReach(image.corner) &&
         isInReach(bounds.low) && isInReach(bounds.high);
}

bool isInWindow(const Box& bounds) {
  return bounds.low[0] < 1.0 && bounds.low[1] < 1.0 && bounds.high[0] > 0.0 && bounds.high[1] > 0.0;
}

bool canBeSeen(const ImageDecoration& image, const std::string& name) {
  const Box bounds = boundsOf(image);
  const char* const flaw = !spansArea(image, bounds) ? "its corners do not span an area that can be drawn"
                           : !image.isInModel && !isInWindow(bounds) ? "it is outside the window"
                                                                     : nullptr;
  if (flaw != nullptr) {
    reportFinding(FindingCode::DECORATION_NOT_DRAWN, "The image \"" + name + "\" is not drawn: " + flaw);
  }
  return flaw == nullptr;
}

bool hasValidPixels(const lum::ImageDrawable& image, const lum::ImageAttributes& attributes) {
  if (attributes.hasValidPixels() && std::max(attributes.getWidth(), attributes.getHeight()) <= MAX_SIZE) {
    return true;
  }
  reportFinding(FindingCode::IMAGE_NOT_DRAWN,
                "The image \"" + image.getName() + "\" is not drawn: its pixels are not " +
                    std::to_string(attributes.getWidth()) + " x " + std::to_string(attributes.getHeight()));
  return false;
}

}  // namespace

Box boundsOf(const ImageDecoration& image) {
  Box bounds;
  for (const Vector3& side : {Vector3(), image.xAxis, image.yAxis, image.xAxis + image.yAxis}) {
    bounds.add(transformedPoint(image.transform ? &*image.transform : nullptr, image.corner + side));
  }
  return bounds;
}

std::optional<ImageDecoration> resolveImage(const lum::ImageDrawable& image) {
  const auto* const attributes = image.findAttributes<lum::ImageAttributes>();
  if (attributes == nullptr || attributes->getPixels() == nullptr || !hasValidPixels(image, *attributes)) {
    return std::nullopt;
  }
  ImageDecoration result;
  result.width = attributes->getWidth();
  result.height = attributes->getHeight();
  result.pixels = attributes->getPixels();
  result.isInModel = attributes->getCoordinateSpace() == lum::CoordinateSpace::MODEL;
  if (const auto* const position = image.findAttributes<lum::PositionAttributes>()) {
    result.corner = position->getPosition();
  }
  result.xAxis = attributes->getXAxis();
  result.yAxis = attributes->getYAxis();
  if (!result.isInModel) {
    // In a window they have no depth.
    result.corner[2] = result.xAxis[2] = result.yAxis[2] = 0.0;
  }
  const auto* const colors = image.findAttributes<lum::ColorAttributes>();
  result.opacity = colors != nullptr ? unitValue(colors->getOpacity(), 1.0) : 1.0;
  return result.opacity > 0.0 && canBeSeen(result, image.getName()) ? std::optional(result) : std::nullopt;
}

}  // namespace vemo
