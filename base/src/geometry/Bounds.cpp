#include "geometry/Bounds.h"

#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <array>

namespace vemo {

namespace {

/// @param bounds in VTK's order: least and greatest x, of y, of z
Box toBox(const double* bounds) {
  return {{bounds[0], bounds[2], bounds[4]}, {bounds[1], bounds[3], bounds[5]}};
}

}  // namespace

Box boundsOf(vtkPolyData& geometry) {
  return toBox(geometry.GetPoints()->GetBounds());
}

Box boundsOfCells(vtkPolyData& geometry) {
  std::array<double, 6> bounds{};
  geometry.GetCellsBounds(bounds.data());
  return toBox(bounds.data());
}

}  // namespace vemo
