#pragma once

#include <vemo/base/Vector.h>

#include <compare>

namespace vemo {

/// Points are drawn no larger than this.
inline constexpr double MAX_POINT_PIXELS = 256.0;

/// How a mesh is drawn, except for its own colour and its data: everything that
/// meshes must have in common to be drawn in one batch. All values are finite
/// and in their ranges, whatever the attributes hold.
struct Appearance {
  enum class Kind { SURFACE, LINES, POINTS };

  Kind kind = Kind::SURFACE;
  /// Of a surface: which parts are visible.
  bool hasFaces = true;
  bool hasEdges = false;
  /// Whether border and sharp edges are drawn, in the edges' colour.
  bool hasContour = false;
  /// Whether the canvas's clipping planes cut it.
  bool isClipped = true;
  /// Red, green, blue in 0..1.
  Vector3 edgeColor;
  /// In 0..1; of edges and contour.
  double edgeOpacity = 1.0;
  /// In 0..1; of everything else.
  double opacity = 1.0;
  /// In pixels, above 0.
  double lineWidth = 1.0;
  /// In pixels, or in model units; above 0.
  double pointSize = 1.0;
  bool isPointSizeInModelUnits = false;
  /// How much light is emitted and reflected, each in 0..1, and how small
  /// highlights are, in 0..128.
  double ambient = 0.0;
  double diffuse = 1.0;
  double specular = 0.0;
  double specularPower = 1.0;

  auto operator<=>(const Appearance&) const = default;
};

}  // namespace vemo
