#include "geometry/drawing/DrawableCells.h"

#include "geometry/Cells.h"
#include "geometry/NewArray.h"
#include "geometry/data/SharedData.h"
#include "geometry/drawing/SelectedData.h"
#include "geometry/drawing/StrayPoints.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkIdList.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <array>
#include <span>
#include <vector>

namespace vemo {

namespace {

bool areLongEnough(vtkCellArray& cells, vtkIdType leastPoints) {
  return withIndices(*cells.GetOffsetsArray(), [leastPoints](auto offsets) {
    for (std::size_t i = 1; i < offsets.size(); ++i) {
      if (offsets[i] - offsets[i - 1] < leastPoints) {
        return false;
      }
    }
    return true;
  });
}

/// Copies the drawable cells, or the drawable parts of them, of one cell array
/// and notes the number of the cell that each comes from.
class CellCopier {
 public:
  CellCopier(const CellKindTraits& kind, const PointMarks& marks, vtkCellArray& target, vtkIdList& sources)
      : _kind(kind), _marks(marks), _target(target), _sources(sources) {}

  void copy(vtkCellArray& cells, vtkIdType firstNumber) {
    forEachCell(cells, [this, number = firstNumber](auto points) mutable { copyRuns(points, number++); });
  }

 private:
  bool isBad(vtkIdType point) const { return !_marks.empty() && _marks[static_cast<std::size_t>(point)]; }

  template <class Index>
  void copyRuns(std::span<const Index> cell, vtkIdType number) {
    const auto bad = [this](vtkIdType index) { return isBad(index); };
    if (!_kind.isDivisible && std::ranges::any_of(cell, bad)) {
      return;
    }
    const auto end = cell.end();
    for (auto point = cell.begin(); point != end;) {
      const auto runEnd = std::find_if(point, end, bad);
      if (runEnd - point >= _kind.leastPoints) {
        _run.assign(point, runEnd);
        _target.InsertNextCell(runEnd - point, _run.data());
        _sources.InsertNextId(number);
      }
      point = std::find_if_not(runEnd, end, bad);
    }
  }

  const CellKindTraits& _kind;
  const PointMarks& _marks;
  vtkCellArray& _target;
  vtkIdList& _sources;
  /// A run as VTK takes it.
  std::vector<vtkIdType> _run;
};

vtkSmartPointer<vtkPoints> moveMarkedPoints(vtkPoints& points, const PointMarks& marks) {
  vtkSmartPointer<vtkPoints> moved = &points;
  if (!marks.empty()) {
    moved = vtkSmartPointer<vtkPoints>::New();
    moved->SetDataType(points.GetDataType());
    moved->DeepCopy(&points);
    const auto firstGood =
        static_cast<vtkIdType>(std::find(marks.begin(), marks.end(), false) - marks.begin());
    std::array<double, 3> place{};
    if (firstGood < points.GetNumberOfPoints()) {
      points.GetPoint(firstGood, place.data());
    }
    for (std::size_t i = 0; i < marks.size(); ++i) {
      if (marks[i]) {
        moved->SetPoint(static_cast<vtkIdType>(i), place.data());
      }
    }
  }
  return moved;
}

vtkSmartPointer<vtkPolyData> copyWithoutCells(vtkPolyData& geometry, const PointMarks& marks) {
  auto copy = vtkSmartPointer<vtkPolyData>::New();
  if (geometry.GetPoints() != nullptr) {
    copy->SetPoints(moveMarkedPoints(*geometry.GetPoints(), marks));
  }
  shareArrays(*geometry.GetPointData(), *copy->GetPointData());
  return copy;
}

bool isAllDrawable(vtkPolyData& geometry, CellKinds kinds, const PointMarks& marks) {
  return marks.empty() && std::ranges::all_of(CELL_KINDS, [&](const CellKindTraits& kind) {
           vtkCellArray& cells = *kind.get(geometry);
           return cells.GetNumberOfCells() == 0 ||
                  (kinds.contains(kind.kind) && areLongEnough(cells, kind.leastPoints));
         });
}

/// @param numbers gets those of the cells that are kept
void keepDrawable(vtkCellArray& cells, const CellKindTraits& kind, const PointMarks& marks, vtkPolyData& copy,
                  vtkIdList& numbers, vtkIdType firstNumber) {
  if (marks.empty() && areLongEnough(cells, kind.leastPoints)) {
    kind.set(copy, &cells);
    for (vtkIdType i = 0; i < cells.GetNumberOfCells(); ++i) {
      numbers.InsertNextId(firstNumber + i);
    }
    return;
  }
  vtkNew<vtkCellArray> kept;
  CellCopier(kind, marks, *kept, numbers).copy(cells, firstNumber);
  kind.set(copy, kept);
}

vtkSmartPointer<vtkPolyData> copyCells(vtkPolyData& geometry, CellKinds kinds, const PointMarks& marks) {
  const auto copy = copyWithoutCells(geometry, marks);
  vtkNew<vtkIdList> numbers;
  vtkIdType firstNumber = 0;
  for (const CellKindTraits& kind : CELL_KINDS) {
    vtkCellArray& cells = *kind.get(geometry);
    if (kinds.contains(kind.kind)) {
      keepDrawable(cells, kind, marks, *copy, *numbers, firstNumber);
    }
    firstNumber += cells.GetNumberOfCells();
  }
  selectData(*geometry.GetCellData(), *copy->GetCellData(), *numbers);
  return copy;
}

/// Numbers the points in the order in which cells use them.
class PointNumbering {
 public:
  /// @param former gets the numbers that they have had
  PointNumbering(vtkIdType points, vtkIdList& former)
      : _numbers(static_cast<std::size_t>(points), -1), _former(former) {}

  vtkNew<vtkCellArray> apply(vtkCellArray& cells) {
    vtkNew<vtkCellArray> result;
    if (!cells.IsStorage64Bit()) {
      result->Use32BitStorage();
    }
    allocateCells(*result, cells.GetNumberOfCells(), cells.GetNumberOfConnectivityIds());
    forEachCell(cells, [&](auto corners) {
      result->InsertNextCell(static_cast<int>(corners.size()));
      for (const auto point : corners) {
        result->InsertCellPoint(numberOf(point));
      }
    });
    return result;
  }

 private:
  vtkIdType numberOf(vtkIdType point) {
    vtkIdType& number = _numbers[static_cast<std::size_t>(point)];
    if (number < 0) {
      number = _former.InsertNextId(point);
    }
    return number;
  }

  std::vector<vtkIdType> _numbers;
  vtkIdList& _former;
};

}  // namespace

vtkSmartPointer<vtkPolyData> drawableCells(vtkPolyData& geometry, CellKinds kinds) {
  const PointScan scan = scanPoints(geometry);
  if (!scan.nonFinite.empty()) {
    // Distances are judged without the non-finite points.
    return drawableCells(*copyCells(geometry, kinds, scan.nonFinite), kinds);
  }
  const PointMarks marks = markFarPoints(geometry, scan.bounds);
  if (isAllDrawable(geometry, kinds, marks)) {
    return &geometry;
  }
  return copyCells(geometry, kinds, marks);
}

vtkSmartPointer<vtkPolyData> pointsAsVertices(vtkPolyData& geometry) {
  const PointMarks marks = scanPoints(geometry).nonFinite;
  const auto copy = copyWithoutCells(geometry, marks);
  vtkNew<vtkCellArray> vertices;
  vertices->Use32BitStorage();
  allocateCells(*vertices, geometry.GetNumberOfPoints(), geometry.GetNumberOfPoints());
  for (vtkIdType point = 0; point < geometry.GetNumberOfPoints(); ++point) {
    if (marks.empty() || !marks[static_cast<std::size_t>(point)]) {
      vertices->InsertNextCell(1, &point);
    }
  }
  copy->SetVerts(vertices);
  return copy;
}

vtkSmartPointer<vtkPolyData> withUsedPoints(vtkPolyData& geometry, vtkIdList& numbers) {
  auto result = vtkSmartPointer<vtkPolyData>::New();
  PointNumbering numbering(geometry.GetNumberOfPoints(), numbers);
  for (const CellKindTraits& kind : CELL_KINDS) {
    kind.set(*result, numbering.apply(*kind.get(geometry)));
  }
  vtkNew<vtkPoints> points;
  points->SetData(selectTuples(*geometry.GetPoints()->GetData(), numbers));
  result->SetPoints(points);
  selectData(*geometry.GetPointData(), *result->GetPointData(), numbers);
  shareArrays(*geometry.GetCellData(), *result->GetCellData());
  return result;
}

}  // namespace vemo
