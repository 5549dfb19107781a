#include "vemoview/resolve/mesh/PointSizes.h"

#include "vemoview/resolve/canvas/ViewVolume.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/resolve/UsualPicture.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <fmt/format.h>

namespace vemo {

namespace {

/// OpenGL in software draws points up to 255 pixels, in a picture twice as large.
constexpr double MOST_PIXELS = 127.0;

}  // namespace

double depthOfTooLarge(double size, const ViewVolume& view) {
  return view.depthOfHeight(size / MOST_PIXELS * USUAL_HEIGHT);
}

void reportTooLarge(const lum::PolyDataNode& points) {
  const NodeScope scope(points);
  reportFinding(FindingCode::VALUE_IGNORED,
                fmt::format("Points of \"{}\" are larger than {} pixels: OpenGL may draw them smaller",
                            itemNameOf(points), MOST_PIXELS));
}

void reportIfTooLarge(const lum::PolyDataNode& points, double pixels) {
  if (pixels > MOST_PIXELS) {
    reportTooLarge(points);
  }
}

}  // namespace vemo
