#pragma once

#include <vemo/base/Vector.h>

#include <span>

namespace vemo {

/// The places at which a canvas is sampled for a picture of the usual size. What lies
/// between them leaves no trace in the picture.
class PictureSamples {
 public:
  /// A point of the canvas, as fractions of its width and height from its lower left corner.
  using Place = Vector<2, double>;

  /// @param size of the canvas, as a part of the window's
  explicit PictureSamples(const Vector<2, double>& size);

  /// Whether a convex polygon has any inside. All of it is in the canvas.
  bool isInside(std::span<const Place> corners) const;

  /// Whether a line passes a column or a row of them.
  bool isPassed(std::span<const Place> line) const;

 private:
  Vector<2, double> _counts;
};

}  // namespace vemo
