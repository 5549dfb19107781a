#pragma once

#include "geometry/Vector3.h"

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>

namespace vemo {

/// Reading of points and cells one by one, quickly and without copies, whatever
/// type their numbers have. The arrays must stay.

class PointReader {
 public:
  /// Of three components.
  explicit PointReader(vtkDataArray& points) : _points(points) {
    if (auto* const floats = vtkFloatArray::FastDownCast(&points)) {
      _floats = floats->GetPointer(0);
    } else if (auto* const doubles = vtkDoubleArray::FastDownCast(&points)) {
      _doubles = doubles->GetPointer(0);
    }
  }

  vtkIdType size() const { return _points.GetNumberOfTuples(); }

  Vector3 operator[](vtkIdType point) const {
    if (_floats != nullptr) {
      const float* const values = _floats + 3 * point;
      return {values[0], values[1], values[2]};
    }
    if (_doubles != nullptr) {
      const double* const values = _doubles + 3 * point;
      return {values[0], values[1], values[2]};
    }
    return {_points.GetComponent(point, 0), _points.GetComponent(point, 1), _points.GetComponent(point, 2)};
  }

 private:
  vtkDataArray& _points;
  const float* _floats = nullptr;
  const double* _doubles = nullptr;
};

/// Whole numbers of 32 or 64 bits.
class IdReader {
 public:
  IdReader(const vtkTypeInt32* narrow, const vtkTypeInt64* wide) : _narrow(narrow), _wide(wide) {}

  vtkIdType operator[](vtkIdType place) const { return _narrow != nullptr ? _narrow[place] : _wide[place]; }

 private:
  const vtkTypeInt32* _narrow;
  const vtkTypeInt64* _wide;
};

/// The points of one cell.
class Corners {
 public:
  Corners(const IdReader& ids, vtkIdType first, vtkIdType count) : _ids(ids), _first(first), _count(count) {}

  vtkIdType size() const { return _count; }
  vtkIdType operator[](vtkIdType corner) const { return _ids[_first + corner]; }

 private:
  IdReader _ids;
  vtkIdType _first;
  vtkIdType _count;
};

class CellReader {
 public:
  explicit CellReader(vtkCellArray& cells)
      : _size(cells.GetNumberOfCells()),
        _offsets(cells.IsStorage64Bit() ? IdReader(nullptr, cells.GetOffsetsArray64()->GetPointer(0))
                                        : IdReader(cells.GetOffsetsArray32()->GetPointer(0), nullptr)),
        _ids(cells.IsStorage64Bit() ? IdReader(nullptr, cells.GetConnectivityArray64()->GetPointer(0))
                                    : IdReader(cells.GetConnectivityArray32()->GetPointer(0), nullptr)) {}

  vtkIdType size() const { return _size; }
  Corners operator[](vtkIdType cell) const {
    const vtkIdType first = _offsets[cell];
    return {_ids, first, _offsets[cell + 1] - first};
  }

 private:
  vtkIdType _size;
  IdReader _offsets;
  IdReader _ids;
};

}  // namespace vemo
