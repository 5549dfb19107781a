#include "geometry/StrayPoints.h"

#include "geometry/CellKinds.h"

#include <vtkArrayDispatch.h>
#include <vtkCellArray.h>
#include <vtkDataArrayRange.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace vemo {

namespace {

struct ScanPoints {
  template <class Array>
  void operator()(Array* coordinates, PointScan& scan) const {
    constexpr double MOST = std::numeric_limits<double>::max();
    std::array<double, 3> low = {MOST, MOST, MOST};
    std::array<double, 3> high = {-MOST, -MOST, -MOST};
    std::size_t number = 0;
    for (const auto point : vtk::DataArrayTupleRange<3>(coordinates)) {
      const std::array<double, 3> place = {static_cast<double>(point[0]), static_cast<double>(point[1]),
                                           static_cast<double>(point[2])};
      if (std::isfinite(place[0]) && std::isfinite(place[1]) && std::isfinite(place[2])) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
          low[axis] = std::min(low[axis], place[axis]);
          high[axis] = std::max(high[axis], place[axis]);
        }
      } else {
        scan.nonFinite.resize(static_cast<std::size_t>(coordinates->GetNumberOfTuples()));
        scan.nonFinite[number] = true;
      }
      ++number;
    }
    if (low[0] <= high[0]) {
      scan.bounds = vtkBoundingBox(low[0], high[0], low[1], high[1], low[2], high[2]);
    }
  }
};

/// Less than this is what the digits of coordinates are good for.
constexpr double FAR = 1000.0;

/// The bounds of a few cells from all over, which all cells' contain.
vtkBoundingBox sampleCells(vtkPolyData& geometry) {
  vtkBoundingBox box;
  for (const CellKind& kind : CELL_KINDS) {
    vtkCellArray* const cells = kind.get(geometry);
    const vtkIdType count = cells == nullptr ? 0 : cells->GetNumberOfCells();
    for (const vtkIdType cell : {vtkIdType(0), count / 3, count - count / 3, count - 1}) {
      if (cell < 0 || cell >= count) {
        continue;
      }
      vtkIdType size = 0;
      const vtkIdType* points = nullptr;
      cells->GetCellAtId(cell, size, points);
      for (vtkIdType i = 0; i < size; ++i) {
        box.AddPoint(geometry.GetPoint(points[i]));
      }
    }
  }
  return box;
}

}  // namespace

PointScan scanPoints(vtkPolyData& geometry) {
  PointScan scan;
  if (geometry.GetPoints() == nullptr) {
    return scan;
  }
  vtkDataArray* const coordinates = geometry.GetPoints()->GetData();
  using Dispatcher = vtkArrayDispatch::DispatchByValueType<vtkArrayDispatch::Reals>;
  if (!Dispatcher::Execute(coordinates, ScanPoints{}, scan)) {
    ScanPoints{}(coordinates, scan);
  }
  return scan;
}

PointMarks markFarPoints(vtkPolyData& geometry, const vtkBoundingBox& bounds) {
  PointMarks marks;
  // Looking at all cells is what this is to spare.
  if (geometry.GetNumberOfCells() == 0 ||
      bounds.GetMaxLength() <= FAR * sampleCells(geometry).GetMaxLength()) {
    return marks;
  }
  std::array<double, 6> used{};
  geometry.GetCellsBounds(used.data());
  const vtkBoundingBox usedBox(used.data());
  if (bounds.GetMaxLength() <= FAR * usedBox.GetMaxLength()) {
    return marks;
  }
  marks.resize(static_cast<std::size_t>(geometry.GetNumberOfPoints()));
  for (std::size_t i = 0; i < marks.size(); ++i) {
    marks[i] = usedBox.ContainsPoint(geometry.GetPoint(static_cast<vtkIdType>(i))) == 0;
  }
  return marks;
}

}  // namespace vemo
