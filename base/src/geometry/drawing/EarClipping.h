#pragma once

#include <vemo/base/Vector.h>
#include <vemo/geometry/Export.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vemo {

/// The corners of a triangle, by their numbers.
using Triangle = std::array<std::size_t, 3>;

/// The steps that may still be taken for the polygons of a mesh. Very intricate ones of very many corners
/// take hundreds of times as many as others; all of them together may not.
class EarSteps {
 public:
  /// @param corners of all polygons
  explicit EarSteps(std::size_t corners) : _left(FREE + PER_CORNER * corners) {}

  /// For a polygon.
  std::uint64_t mostFor(std::size_t corners) const { return std::min(_left, MOST_PER_CORNER * corners); }
  /// No more than there are, but for a few.
  void take(std::uint64_t steps) { _left -= std::min(_left, steps); }

 private:
  static constexpr std::uint64_t FREE = 40'000'000;
  static constexpr std::uint64_t PER_CORNER = 400;
  static constexpr std::uint64_t MOST_PER_CORNER = 4000;

  std::uint64_t _left;
};

/// Triangles that cover exactly what a polygon surrounds, once each place. The polygon is given
/// counter-clockwise; so are the triangles. Nothing for one that crosses itself or has no area, and for
/// some in which borders or corners coincide.
///
/// Takes less than n * sqrt(n) steps for n corners of most shapes, and gives up when there are none left.
VEMO_GEOMETRY_EXPORT std::optional<std::vector<Triangle>> clipEars(
    const std::vector<Vector<2, double>>& polygon, EarSteps& steps);

}  // namespace vemo
