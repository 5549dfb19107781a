#pragma once

#include <vemo/base/Vector.h>
#include <vemo/geometry/Export.h>

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace vemo {

/// The corners of a triangle, by their numbers.
using Triangle = std::array<std::size_t, 3>;

/// Triangles that cover exactly what a polygon surrounds, once each place. The polygon is given
/// counter-clockwise; so are the triangles. Nothing for one that crosses itself or has no area, and for
/// some in which borders or corners coincide.
///
/// Takes less than n * sqrt(n) steps for n corners of most shapes, and gives up after 4,000 * n.
VEMO_GEOMETRY_EXPORT std::optional<std::vector<Triangle>> clipEars(
    const std::vector<Vector<2, double>>& polygon);

}  // namespace vemo
