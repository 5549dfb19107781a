#include "geometry/Bounds.h"

#include "geometry/Cells.h"
#include "geometry/Points.h"
#include <vemo/geometry/CellKind.h>

#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace vemo {

namespace {

/// @param bounds in VTK's order: least and greatest x, of y, of z
Box toBox(const double* bounds) {
  return {{bounds[0], bounds[2], bounds[4]}, {bounds[1], bounds[3], bounds[5]}};
}

}  // namespace

PointScan scanPoints(vtkDataArray& coordinates) {
  PointScan scan;
  PointReader(coordinates).visit([&scan](const auto& points) {
    // A local variable stays in registers.
    Box bounds;
    for (vtkIdType i = 0; i < points.size(); ++i) {
      const Vector3 point = points[i];
      if (isFinite(point)) {
        bounds.add(point);
      } else {
        scan.nonFinite.resize(static_cast<std::size_t>(points.size()));
        scan.nonFinite[static_cast<std::size_t>(i)] = true;
      }
    }
    scan.bounds = bounds;
  });
  return scan;
}

Box finiteBounds(vtkDataArray& coordinates, vtkIdType* leftOut) {
  const PointScan scan = scanPoints(coordinates);
  if (leftOut != nullptr) {
    *leftOut = std::ranges::count(scan.nonFinite, true);
  }
  return scan.bounds;
}

Box boundsOf(vtkPolyData& geometry) {
  return toBox(geometry.GetPoints()->GetBounds());
}

Box boundsOfCells(vtkPolyData& geometry) {
  // Most points have several cells: each is looked at once.
  std::vector<std::uint8_t> isUsed(static_cast<std::size_t>(geometry.GetNumberOfPoints()));
  for (const CellKindTraits& kind : CELL_KINDS) {
    withCorners(*kind.get(geometry), [&isUsed](auto corners) {
      for (const auto point : corners) {
        isUsed[static_cast<std::size_t>(point)] = 1;
      }
    });
  }
  Box result;
  PointReader(*geometry.GetPoints()->GetData()).visit([&](const auto& points) {
    // A local variable stays in registers.
    Box bounds;
    for (vtkIdType i = 0; i < points.size(); ++i) {
      if (isUsed[static_cast<std::size_t>(i)] != 0) {
        bounds.add(points[i]);
      }
    }
    result = bounds;
  });
  return result;
}

}  // namespace vemo
