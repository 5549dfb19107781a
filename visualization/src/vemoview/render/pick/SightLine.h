#pragma once

#include <vemo/base/Vector.h>

#include <limits>
#include <optional>

class vtkRenderer;

namespace vemo {

/// What lies behind a pixel: a ray from the viewer's eye into the model, and how
/// large a pixel is along it.
struct SightLine {
  Vector3 origin;
  /// A unit vector.
  Vector3 direction;
  /// The size of a pixel at the origin, and how much it grows with each unit of
  /// length along the ray.
  double pixelAtOrigin = 0.0;
  double pixelGrowth = 0.0;

  /// Through a pixel of the window that the renderer is in, counted from the
  /// window's lower left corner; nothing for one outside the renderer's part.
  static std::optional<SightLine> through(vtkRenderer& renderer, const Vector<2, double>& pixel);

  Vector3 at(double distance) const { return origin + distance * direction; }
  double pixelSize(double distance) const { return pixelAtOrigin + distance * pixelGrowth; }
};

/// A part of a sight line, by its distances from the origin.
struct Span {
  double first = 0.0;
  double last = std::numeric_limits<double>::infinity();
};

}  // namespace vemo
