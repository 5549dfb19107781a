#pragma once

#include "geometry/Box.h"

#include <vtkPoints.h>
#include <vtkPolyData.h>

namespace vemo {

/// Around all points of a geometry, whether cells use them or not. VTK keeps
/// the result with the points.
inline Box boundsOf(vtkPolyData& geometry) {
  const double* const bounds = geometry.GetPoints()->GetBounds();
  return {{bounds[0], bounds[2], bounds[4]}, {bounds[1], bounds[3], bounds[5]}};
}

}  // namespace vemo
