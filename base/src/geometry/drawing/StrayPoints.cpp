#include "geometry/drawing/StrayPoints.h"

#include "geometry/Cells.h"
#include "geometry/Points.h"
#include <vemo/geometry/CellKind.h>

#include <vtkPoints.h>
#include <vtkPolyData.h>

namespace vemo {

namespace {

/// Single precision is enough for cells up to this many times smaller than the
/// bounds that they are drawn in.
constexpr double FAR = 1000.0;

/// The bounds of a few cells from all over; those of all cells contain them.
Box sampleCells(vtkPolyData& geometry) {
  Box box;
  for (const CellKindTraits& kind : CELL_KINDS) {
    const CellReader cells(*kind.get(geometry));
    for (const vtkIdType cell :
         {vtkIdType(0), cells.size() / 3, cells.size() - cells.size() / 3, cells.size() - 1}) {
      if (cell < 0 || cell >= cells.size()) {
        continue;
      }
      const Corners corners = cells[cell];
      for (vtkIdType i = 0; i < corners.size(); ++i) {
        box.add(toVector(geometry.GetPoint(corners[i])));
      }
    }
  }
  return box;
}

}  // namespace

PointScan scanPoints(vtkPolyData& geometry) {
  return geometry.GetPoints() != nullptr ? scanPoints(*geometry.GetPoints()->GetData()) : PointScan();
}

PointMarks markFarPoints(vtkPolyData& geometry, const Box& bounds) {
  PointMarks marks;
  const double size = bounds.longestSide();
  // The sample mostly saves the pass over all cells.
  if (geometry.GetNumberOfCells() == 0 || size <= FAR * sampleCells(geometry).longestSide()) {
    return marks;
  }
  const Box used = boundsOfCells(geometry);
  if (size <= FAR * used.longestSide()) {
    return marks;
  }
  const PointReader points(*geometry.GetPoints()->GetData());
  marks.resize(static_cast<std::size_t>(points.size()));
  for (vtkIdType i = 0; i < points.size(); ++i) {
    marks[static_cast<std::size_t>(i)] = !used.contains(points[i]);
  }
  return marks;
}

}  // namespace vemo
