#include "vemoview/resolve/mesh/PointSizes.h"

#include "vemoview/resolve/canvas/ViewVolume.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/resolve/UsualPicture.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <algorithm>
#include <fmt/format.h>

namespace vemo {

double pointPixels(const Appearance& points, const ViewVolume& view, const Vector3& center) {
  if (!points.isPointSizeInModelUnits) {
    return points.pointSize;
  }
  const double height = view.heightAt(view.depthOf(center));
  return height > 0.0 ? std::clamp(points.pointSize / height * USUAL_HEIGHT, 1.0, MAX_POINT_PIXELS)
                      : MAX_POINT_PIXELS;
}

void reportIfTooLarge(const lum::PolyDataNode& points, double pixels) {
  // OpenGL in software draws them up to 255 pixels, in a picture twice as large.
  constexpr double MOST_PIXELS = 127.0;
  if (pixels > MOST_PIXELS) {
    const NodeScope scope(points);
    reportFinding(FindingCode::VALUE_IGNORED,
                  fmt::format("Points of \"{}\" are larger than {} pixels: OpenGL may draw them smaller",
                              itemNameOf(points), MOST_PIXELS));
  }
}

}  // namespace vemo
