#pragma once

#include "math/Vector.h"
#include "vemo_import_export.h"

#include <optional>

class vtkPoints;

namespace geometry {

/// A box along the axes.
struct Bounds {
  Vector<3, double> minimum;
  Vector<3, double> maximum;

  VEMO_IMPORT_EXPORT Vector<3, double> center() const;
};

/// The box around the points, leaving out every point that has a coordinate
/// which is not finite; nothing when no point is left.
VEMO_IMPORT_EXPORT std::optional<Bounds> finiteBounds(vtkPoints& points);

}  // namespace geometry
