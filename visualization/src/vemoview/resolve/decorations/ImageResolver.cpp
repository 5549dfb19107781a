#include "vemoview/resolve/decorations/ImageResolver.h"

#include "base/Utf8.h"
#include "geometry/Box.h"
#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/attributes/PositionAttributes.h>
#include <vemo/scenegraph/coloring/ColorAttributes.h>
#include <vemo/scenegraph/drawables/ImageDrawable.h>

#include <vtkDataArray.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <string>

namespace vemo {

namespace {

/// Larger than any that OpenGL accepts.
constexpr std::int32_t MAX_SIZE = 16384;

/// In widths and heights of the window: OpenGL draws nothing of images that reach much farther.
constexpr double FARTHEST_IN_WINDOW = 1e6;

/// Also false for corners that are not numbers.
bool spansArea(const ImageDecoration& image, const Box& bounds) {
  const double area = length(cross(image.xAxis, image.yAxis));
  const auto isNear = [&image](const Vector3& point) {
    return isInReach(point) && (image.isInModel || std::ranges::all_of(point, [](double value) {
                                  return std::abs(value) <= FARTHEST_IN_WINDOW;
                                }));
  };
  return area > 0.0 && bounds.longestSide() >= lum::LEAST_DISTANCE && isNear(image.corner) &&
         isNear(bounds.low) && isNear(bounds.high);
}

bool canBeDrawn(const ImageDecoration& image, const std::string& name) {
  if (spansArea(image, boundsOf(image))) {
    return true;
  }
  reportFinding(FindingCode::DECORATION_NOT_DRAWN,
                "The image \"" + name + "\" is not drawn: its corners do not span an area that can be drawn");
  return false;
}

bool hasValidPixels(const lum::ImageDrawable& image, const lum::ImageAttributes& attributes) {
  const int width = attributes.getWidth();
  const int height = attributes.getHeight();
  if (attributes.hasValidPixels() && std::max(width, height) <= MAX_SIZE) {
    return true;
  }
  const std::string fault =
      attributes.hasValidPixels()
          ? fmt::format("{} x {} pixels are too many: {} in each direction are possible", width, height,
                        MAX_SIZE)
          : fmt::format("its pixels are not {} x {}", width, height);
  reportFinding(FindingCode::IMAGE_NOT_DRAWN,
                "The image \"" + shortName(image.getName()) + "\" is not drawn: " + fault);
  return false;
}

}  // namespace

Box boundsOf(const ImageDecoration& image) {
  Box bounds;
  for (const Vector3& corner : cornersOf(image)) {
    bounds.add(corner);
  }
  return bounds;
}

std::array<Vector3, 4> cornersOf(const ImageDecoration& image) {
  std::array<Vector3, 4> corners{image.corner, image.corner + image.xAxis,
                                 image.corner + image.xAxis + image.yAxis, image.corner + image.yAxis};
  if (image.transform) {
    for (Vector3& corner : corners) {
      corner = transformedPoint(&*image.transform, corner);
    }
  }
  return corners;
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
  return result.opacity > 0.0 && canBeDrawn(result, image.getName()) ? std::optional(result) : std::nullopt;
}

}  // namespace vemo
