#include "vemoview/render/draw/DrawnAppearance.h"

namespace vemo {

Appearance drawnAppearance(const Appearance& appearance) {
  const Appearance none;
  Appearance drawn = appearance;
  const bool isSurface = drawn.kind == Appearance::Kind::SURFACE;
  const bool hasEdges = isSurface && (drawn.hasEdges || drawn.hasContour);
  if (!hasEdges) {
    drawn.edgeColor = none.edgeColor;
    drawn.edgeOpacity = none.edgeOpacity;
  }
  if (!hasEdges && drawn.kind != Appearance::Kind::LINES) {
    drawn.lineWidth = none.lineWidth;
  }
  if (drawn.kind != Appearance::Kind::POINTS) {
    drawn.pointSize = none.pointSize;
  }
  if (drawn.kind == Appearance::Kind::LINES) {
    // They are not lit.
    drawn.ambient = none.ambient;
    drawn.diffuse = none.diffuse;
    drawn.specular = none.specular;
    drawn.specularPower = none.specularPower;
  }
  return drawn;
}

}  // namespace vemo
