#include "geometry/Box.h"

#include "geometry/Points.h"

#include <algorithm>
#include <numeric>

namespace vemo {

Vector3 Box::center() const {
  // Half of a sum would overflow for the largest coordinates.
  return {std::midpoint(low[0], high[0]), std::midpoint(low[1], high[1]), std::midpoint(low[2], high[2])};
}

double Box::longestSide() const {
  return std::ranges::max(high - low);
}

Box finiteBounds(vtkDataArray& coordinates, vtkIdType* leftOut) {
  Box bounds;
  vtkIdType count = 0;
  PointReader(coordinates).visit([&](const auto& points) {
    for (vtkIdType i = 0; i < points.size(); ++i) {
      const Vector3 point = points[i];
      if (isFinite(point)) {
        bounds.add(point);
      } else {
        ++count;
      }
    }
  });
  if (leftOut != nullptr) {
    *leftOut = count;
  }
  return bounds;
}

}  // namespace vemo
