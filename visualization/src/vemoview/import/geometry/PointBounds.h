#pragma once

#include "geometry/Box.h"

#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <map>

namespace vemo {

/// Where the points of arrays lie. Geometries share arrays, each of which is passed
/// once; nobody changes them meanwhile.
class PointBounds {
 public:
  struct Bounds {
    /// Around the points with finite coordinates.
    Box box;
    /// The number of other points.
    vtkIdType nonFinite = 0;
  };

  const Bounds& of(vtkDataArray& points);

 private:
  /// Keeps the arrays, so that none takes the place of another.
  std::map<vtkSmartPointer<vtkDataArray>, Bounds> _known;
};

}  // namespace vemo
