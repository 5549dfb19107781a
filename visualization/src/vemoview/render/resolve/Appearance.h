#pragma once

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/drawables/GeometryDrawables.h>

#include <compare>

namespace lum {
class PointScaleAttributes;
}

namespace vemo {

/// How a piece of geometry is drawn, as plain values that can be drawn: all are
/// finite and in their ranges, whatever the attributes hold.
struct Appearance {
  enum class Kind { SURFACE, LINES, POINTS };

  /// The colour of points that have been given none: it stands out against
  /// black and against white by the same contrast (about 4.5 to 1).
  static constexpr Vector<3, double> POINT_COLOR{0.85, 0.27, 0.05};
  /// The colour of lines and surfaces that have been given none.
  static constexpr Vector<3, double> SURFACE_COLOR{1.0, 1.0, 1.0};

  /// No point is drawn larger.
  static constexpr double MOST_POINT_PIXELS = 256.0;

  Kind kind = Kind::SURFACE;
  bool hasFaces = true;
  bool hasEdges = false;
  /// Whether border and sharp edges are drawn, in the edges' colour.
  bool hasContour = false;
  bool isClipped = true;
  /// Red, green, blue in 0..1.
  Vector<3, double> color = SURFACE_COLOR;
  Vector<3, double> edgeColor;
  /// In 0..1.
  double opacity = 1.0;
  /// In pixels, above 0.
  double lineWidth = 1.0;
  double pointSize = 1.0;
  /// How much light is shed and thrown back, each in 0..1, and how small
  /// highlights are: in 0..128.
  double ambient = 0.0;
  double diffuse = 1.0;
  double specular = 0.0;
  double specularPower = 1.0;

  /// Whether the point size is in model units.
  bool hasModelSize = false;

  /// Takes a size from 0 to 1 along the range of sizes.
  void setPointSize(const lum::PointScaleAttributes& scale, double place);

  /// What the attributes of a drawable say about one of its pieces.
  static Appearance of(const lum::GeometryDrawable& drawable, const lum::PolyDataNode& piece);
};

}  // namespace vemo
