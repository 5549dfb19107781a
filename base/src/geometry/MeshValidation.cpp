#include "geometry/MeshValidation.h"

#include "geometry/StrayPoints.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkIdList.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <array>

namespace vemo {

namespace {

/// What is wrong with the offsets and indices of a cell array; null for sound
/// ones.
struct FindFault {
  template <class State>
  const char* operator()(State& state, vtkIdType pointCount) const {
    auto* const offsets = state.GetOffsets();
    auto* const indices = state.GetConnectivity();
    const auto offsetCount = offsets->GetNumberOfValues();
    if (offsetCount == 0) {
      return indices->GetNumberOfValues() == 0 ? nullptr : "indices without cells";
    }
    const auto* const firstOffset = offsets->GetPointer(0);
    const auto* const lastOffset = firstOffset + offsetCount - 1;
    if (*firstOffset != 0 || *lastOffset > indices->GetNumberOfValues() ||
        !std::is_sorted(firstOffset, lastOffset + 1)) {
      return "cells outside the list of indices";
    }
    const auto* const firstIndex = indices->GetPointer(0);
    const bool isWithin = std::all_of(firstIndex, firstIndex + *lastOffset,
                                      [=](auto index) { return index >= 0 && index < pointCount; });
    return isWithin ? nullptr : "an index outside the points";
  }
};

struct AreAllLongEnough {
  template <class State>
  bool operator()(State& state, vtkIdType minimum) const {
    const vtkIdType cellCount = state.GetNumberOfCells();
    for (vtkIdType cell = 0; cell < cellCount; ++cell) {
      if (state.GetCellSize(cell) < minimum) {
        return false;
      }
    }
    return true;
  }
};

/// Copies the drawable cells, or the drawable parts of them, of one cell array
/// and notes the number of the cell that each comes from.
class CellCopier {
 public:
  CellCopier(const CellKind& kind, const PointMarks& marks, vtkCellArray& target, vtkIdList& sources)
      : _kind(kind), _marks(marks), _target(target), _sources(sources) {}

  void copy(vtkCellArray& cells, vtkIdType firstNumber) {
    for (vtkIdType cell = 0; cell < cells.GetNumberOfCells(); ++cell) {
      vtkIdType size = 0;
      const vtkIdType* points = nullptr;
      cells.GetCellAtId(cell, size, points);
      copyRuns(points, points + size, firstNumber + cell);
    }
  }

 private:
  bool isBad(vtkIdType point) const { return !_marks.empty() && _marks[static_cast<std::size_t>(point)]; }

  void copyRuns(const vtkIdType* point, const vtkIdType* end, vtkIdType number) {
    const auto bad = [this](vtkIdType index) { return isBad(index); };
    if (!_kind.isDivisible && std::any_of(point, end, bad)) {
      return;
    }
    while (point != end) {
      const vtkIdType* const runEnd = std::find_if(point, end, bad);
      if (runEnd - point >= _kind.minimum) {
        _target.InsertNextCell(runEnd - point, point);
        _sources.InsertNextId(number);
      }
      point = std::find_if_not(runEnd, end, bad);
    }
  }

  const CellKind& _kind;
  const PointMarks& _marks;
  vtkCellArray& _target;
  vtkIdList& _sources;
};

vtkSmartPointer<vtkDataArray> selectTuples(vtkDataArray& array, vtkIdList& numbers) {
  auto selected = vtk::TakeSmartPointer(array.NewInstance());
  selected->SetName(array.GetName());
  selected->SetNumberOfComponents(array.GetNumberOfComponents());
  selected->SetNumberOfTuples(numbers.GetNumberOfIds());
  array.GetTuples(&numbers, selected);
  return selected;
}

void selectCellData(vtkCellData& from, vtkCellData& to, vtkIdList& numbers) {
  for (int i = 0; i < from.GetNumberOfArrays(); ++i) {
    if (vtkDataArray* const array = from.GetArray(i)) {
      const int index = to.AddArray(selectTuples(*array, numbers));
      const int role = from.IsArrayAnAttribute(i);
      if (role >= 0) {
        to.SetActiveAttribute(index, role);
      }
    }
  }
}

vtkSmartPointer<vtkPoints> moveMarkedPoints(vtkPoints& points, const PointMarks& marks) {
  vtkSmartPointer<vtkPoints> moved = &points;
  if (!marks.empty()) {
    moved = vtkSmartPointer<vtkPoints>::New();
    moved->SetDataType(points.GetDataType());
    moved->DeepCopy(&points);
    const auto sound = static_cast<vtkIdType>(std::find(marks.begin(), marks.end(), false) - marks.begin());
    std::array<double, 3> place{};
    if (sound < points.GetNumberOfPoints()) {
      points.GetPoint(sound, place.data());
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
  copy->GetPointData()->ShallowCopy(geometry.GetPointData());
  return copy;
}

bool isAllDrawable(vtkPolyData& geometry, unsigned kinds, const PointMarks& marks) {
  return marks.empty() && std::ranges::all_of(CELL_KINDS, [&](const CellKind& kind) {
           vtkCellArray* const cells = kind.get(geometry);
           return cells == nullptr || cells->GetNumberOfCells() == 0 ||
                  ((kinds & kind.kind) != 0 && cells->Visit(AreAllLongEnough{}, kind.minimum));
         });
}

vtkSmartPointer<vtkPolyData> copyCells(vtkPolyData& geometry, unsigned kinds, const PointMarks& marks) {
  const auto copy = copyWithoutCells(geometry, marks);
  vtkNew<vtkIdList> numbers;
  vtkIdType firstNumber = 0;
  for (const CellKind& kind : CELL_KINDS) {
    vtkCellArray* const cells = kind.get(geometry);
    if (cells == nullptr) {
      continue;
    }
    if ((kinds & kind.kind) != 0) {
      vtkNew<vtkCellArray> kept;
      CellCopier(kind, marks, *kept, *numbers).copy(*cells, firstNumber);
      kind.set(*copy, kept);
    }
    firstNumber += cells->GetNumberOfCells();
  }
  selectCellData(*geometry.GetCellData(), *copy->GetCellData(), *numbers);
  return copy;
}

}  // namespace

bool hasSoundCells(vtkPolyData& geometry, std::string& fault) {
  const vtkIdType pointCount = geometry.GetNumberOfPoints();
  for (const CellKind& kind : CELL_KINDS) {
    if (vtkCellArray* const cells = kind.get(geometry)) {
      if (const char* const found = cells->Visit(FindFault{}, pointCount)) {
        fault = std::string("its ") + kind.name + " cells have " + found;
        return false;
      }
    }
  }
  return true;
}

vtkSmartPointer<vtkPolyData> drawableCells(vtkPolyData& geometry, unsigned kinds) {
  const PointScan scan = scanPoints(geometry);
  if (!scan.nonFinite.empty()) {
    // Which of the others are far can be told without these.
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
  for (vtkIdType point = 0; point < geometry.GetNumberOfPoints(); ++point) {
    if (marks.empty() || !marks[static_cast<std::size_t>(point)]) {
      vertices->InsertNextCell(1, &point);
    }
  }
  copy->SetVerts(vertices);
  return copy;
}

}  // namespace vemo
