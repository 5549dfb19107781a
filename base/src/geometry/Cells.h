#pragma once

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkPolyData.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

/// Reading the cells of a cell array, of 32-bit or 64-bit storage, without
/// copies. The array must outlive whatever reads it here.
namespace vemo {

/// Calls the action with the values of an array of offsets or point indices, as
/// a span of std::int32_t or of std::int64_t.
template <class Action>
auto withIndices(vtkDataArray& array, const Action& action) {
  const auto count = static_cast<std::size_t>(array.GetNumberOfValues());
  const void* const values = array.GetVoidPointer(0);
  return array.GetDataTypeSize() == sizeof(std::int32_t)
             ? action(std::span(static_cast<const std::int32_t*>(values), count))
             : action(std::span(static_cast<const std::int64_t*>(values), count));
}

/// Calls the action with the point indices of each cell, as a span of 32-bit or
/// 64-bit integers. Every offset is within the connectivity.
template <class Action>
void forEachCell(vtkCellArray& cells, Action&& action) {
  cells.Visit([&action](auto& storage) {
    using Index = std::remove_pointer_t<decltype(storage.GetOffsets()->GetPointer(0))>;
    const Index* const offsets = storage.GetOffsets()->GetPointer(0);
    const Index* const indices = storage.GetConnectivity()->GetPointer(0);
    const vtkIdType count = storage.GetNumberOfCells();
    for (vtkIdType cell = 0; cell < count; ++cell) {
      action(std::span<const Index>(indices + offsets[cell], indices + offsets[cell + 1]));
    }
  });
}

/// Calls the action with the point indices of all cells, as forEachCell does with those of each: the
/// connectivity may continue after the last cell.
template <class Action>
void withCorners(vtkCellArray& cells, const Action& action) {
  cells.Visit([&action](auto& storage) {
    using Index = std::remove_pointer_t<decltype(storage.GetOffsets()->GetPointer(0))>;
    const auto count = static_cast<std::size_t>(storage.GetOffsets()->GetValue(storage.GetNumberOfCells()));
    action(std::span<const Index>(storage.GetConnectivity()->GetPointer(0), count));
  });
}

/// Calls the action with the three corners of each triangle of a strip. Every
/// second triangle runs against the strip, so that all face one way; which of
/// its points comes first is as in vtkTriangleStrip::DecomposeStrip.
template <class Index, class Action>
void forEachTriangle(std::span<const Index> strip, const Action& action) {
  for (std::size_t i = 0; i + 2 < strip.size(); ++i) {
    const std::size_t odd = i % 2;
    action(strip[i + odd], strip[i + 1 - odd], strip[i + 2]);
  }
}

/// Of strips of three points or more.
inline vtkIdType countTriangles(const vtkCellArray& strips) {
  return strips.GetNumberOfConnectivityIds() - 2 * strips.GetNumberOfCells();
}

/// Calls the action with the points of each polygon and of each triangle of the
/// strips, as a span.
template <class Action>
void forEachFace(vtkPolyData& mesh, const Action& action) {
  forEachCell(*mesh.GetPolys(), action);
  forEachCell(*mesh.GetStrips(), [&action](auto strip) {
    forEachTriangle(strip, [&action](auto p0, auto p1, auto p2) {
      const std::array triangle{p0, p1, p2};
      action(decltype(strip)(triangle));
    });
  });
}

/// Offsets or point indices, of 32 or 64 bits.
class IndexReader {
 public:
  IndexReader(const vtkTypeInt32* narrow, const vtkTypeInt64* wide) : _narrow(narrow), _wide(wide) {}

  vtkIdType operator[](vtkIdType index) const { return _narrow != nullptr ? _narrow[index] : _wide[index]; }

 private:
  const vtkTypeInt32* _narrow;
  const vtkTypeInt64* _wide;
};

/// The point indices of one cell.
class Corners {
 public:
  Corners(const IndexReader& indices, vtkIdType first, vtkIdType count)
      : _indices(indices), _first(first), _count(count) {}

  vtkIdType size() const { return _count; }
  vtkIdType operator[](vtkIdType corner) const { return _indices[_first + corner]; }

 private:
  IndexReader _indices;
  vtkIdType _first;
  vtkIdType _count;
};

/// Cells by number, in 32-bit or 64-bit storage. It checks the storage for each
/// index: loops over many cells should use forEachCell.
class CellReader {
 public:
  explicit CellReader(vtkCellArray& cells)
      : _size(cells.GetNumberOfCells()),
        _offsets(cells.IsStorage64Bit() ? IndexReader(nullptr, cells.GetOffsetsArray64()->GetPointer(0))
                                        : IndexReader(cells.GetOffsetsArray32()->GetPointer(0), nullptr)),
        _indices(cells.IsStorage64Bit()
                     ? IndexReader(nullptr, cells.GetConnectivityArray64()->GetPointer(0))
                     : IndexReader(cells.GetConnectivityArray32()->GetPointer(0), nullptr)) {}

  vtkIdType size() const { return _size; }
  Corners operator[](vtkIdType cell) const {
    const vtkIdType first = _offsets[cell];
    return {_indices, first, _offsets[cell + 1] - first};
  }

 private:
  vtkIdType _size;
  IndexReader _offsets;
  IndexReader _indices;
};

}  // namespace vemo
