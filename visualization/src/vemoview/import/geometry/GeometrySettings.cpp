#include "vemoview/import/reading/KeyTable.h"
#include <vemo/import/geometry/GeometryItem.h>
#include <vemo/import/geometry/GeometrySettings.h>

namespace vemo {

using Settings = GeometrySettings;

const KeyTable<Settings> Settings::KEYS({
    key::always<&Settings::lineColor>("lineColor",
                                      "of lines, and of the edges and the contour of surfaces; alpha is "
                                      "their opacity, whatever that of the faces")
        .onlyFor({GeometryItem::SURFACE, GeometryItem::LINES}),
    key::always<&Settings::faceColor>("faceColor", "of faces; alpha is their opacity")
        .onlyFor({GeometryItem::SURFACE})
        .own(),
    key::always<&Settings::lineWidth>(
        "lineWidth", "of lines, edges and the contour, in pixels; 0 and less are drawn as 1"),
    key::always<&Settings::showEdges>("showEdges", "draws the edges of a surface's cells")
        .onlyFor({GeometryItem::SURFACE}),
    key::always<&Settings::showFaces>("showFaces", "draws the faces of a surface")
        .onlyFor({GeometryItem::SURFACE}),
    key::always<&Settings::smoothShading>(
        "smoothShading",
        "shades all of a surface evenly over its points, sharp edges too, or flat by its cells")
        .onlyFor({GeometryItem::SURFACE})
        .own(),
    key::always<&Settings::contour>("contour", "draws the border of a surface and its sharp edges")
        .onlyFor({GeometryItem::SURFACE}),
    key::always<&Settings::ambient>("ambient", "how bright it is without light, 0 to 1"),
    key::always<&Settings::diffuse>("diffuse", "how strongly it reflects light in all directions, 0 to 1"),
    key::always<&Settings::specular>(
        "specular",
        "strength of highlights, 0 to 1. When these three are 0 the renderer uses "
        "its own default lighting"),
    key::always<&Settings::specularPower>("specularPower",
                                          "how small the highlights are, up to 128; with 0 "
                                          "everything lit is equally bright"),
    key::always<&Settings::ignoreClip>("ignoreClip", "the clipping planes do not cut it"),
    key::ifPresent<&Settings::pointSize>("pointSize", "of points, in pixels; drawn as spheres from 4 on"),
    key::ifPresent<&Settings::pointScaleMode>(
        "pointScaleMode", "sizes of points by data: 0 not, 1 linear, 2 by the logarithm; another number is 0")
        .onlyFor({GeometryItem::POINTS}),
    key::ifPresent<&Settings::pointScalePixelSize>("pointScalePixelsSize",
                                                   "sizes are in pixels (not 0) or in model units (0)")
        .onlyFor({GeometryItem::POINTS}),
    key::ifPresent<&Settings::pointScaleScalarName>("pointScaleScalarName",
                                                    "the array over the points that gives their sizes")
        .onlyFor({GeometryItem::POINTS}),
    key::ifPresent<&Settings::pointScaleScalarRange>("pointScaleScalarRange",
                                                     "from `x` to `y`: the values for the two sizes")
        .defaultingTo("the array's")
        .onlyFor({GeometryItem::POINTS}),
    key::ifPresent<&Settings::pointScaleScalarMapTo>("pointScaleScalarMapTo",
                                                     "from `x` to `y`: the sizes of these values")
        .defaultingTo("the point size")
        .onlyFor({GeometryItem::POINTS}),
});

bool Settings::hasLighting() const {
  return ambient != 0.0 || diffuse != 0.0 || specular != 0.0;
}

bool Settings::hasPointScale() const {
  return pointScaleMode != 0 || !pointScaleScalarName.empty() || pointScaleScalarRange ||
         pointScaleScalarMapTo;
}

}  // namespace vemo
