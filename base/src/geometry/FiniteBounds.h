#pragma once

#include <vemo/base/Vector.h>
#include <vemo/geometry/Export.h>

#include <optional>

class vtkPoints;

namespace vemo::geometry {

/// A box along the axes.
struct Bounds {
  Vector<3, double> minimum;
  Vector<3, double> maximum;

  VEMO_GEOMETRY_EXPORT Vector<3, double> center() const;
};

/// The box around the points, leaving out every point that has a coordinate
/// which is not finite; nothing when no point is left.
VEMO_GEOMETRY_EXPORT std::optional<Bounds> finiteBounds(vtkPoints& points);

}  // namespace vemo::geometry
