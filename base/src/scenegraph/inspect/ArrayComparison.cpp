#include "scenegraph/inspect/ArrayComparison.h"

#include "scenegraph/ArrayType.h"
#include "scenegraph/inspect/ArrayValues.h"
#include "scenegraph/inspect/NumberComparison.h"
#include <vemo/scenegraph/inspect/ArrayText.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <vtkCellArray.h>
#include <vtkIdList.h>
#include <vtkNew.h>

#include <algorithm>
#include <cstring>
#include <fmt/format.h>
#include <string_view>
#include <vector>

namespace lum {

namespace {

constexpr vtkIdType LARGE_ARRAY = 1024;

std::string quotedNameOf(vtkDataArray& array) {
  return array.GetName() != nullptr ? fmt::format("\"{}\"", array.GetName()) : "nothing";
}

/// Whether the values lie in memory in the same way.
bool haveSameLayout(vtkDataArray& left, vtkDataArray& right) {
  return arrayTypeOf(left) && arrayTypeOf(right) &&
         std::string_view(arrayTypeName(left)) == arrayTypeName(right);
}

/// Whether arrays of the same layout and size have the same bytes.
bool haveSameBytes(vtkDataArray& left, vtkDataArray& right) {
  const auto size =
      static_cast<std::size_t>(left.GetNumberOfValues()) * static_cast<std::size_t>(left.GetDataTypeSize());
  return size == 0 || std::memcmp(left.GetVoidPointer(0), right.GetVoidPointer(0), size) == 0;
}

template <class T>
ComparedValue toComparedValue(T number) {
  if constexpr (std::floating_point<T>) {
    return number;
  } else if constexpr (std::unsigned_integral<T>) {
    return std::uint64_t{number};
  } else {
    return std::int64_t{number};
  }
}

std::vector<double> toDoubles(vtkDataArray& array) {
  std::vector<double> doubles;
  visitValues(array, [&](auto values) { doubles.assign(values.begin(), values.end()); });
  return doubles;
}

std::vector<std::int64_t> toNumbers(vtkIdList& ids) {
  return {ids.begin(), ids.end()};
}

}  // namespace

std::string ArrayComparison::describeShape(vtkDataArray& array) const {
  std::string shape =
      fmt::format("{}, {} tuples", describeType(array), groupDigits(array.GetNumberOfTuples()));
  if (!_rules.isBitwise) {
    return shape;
  }
  // Files distinguish types that have the same name for users.
  const auto type = arrayTypeOf(array);
  return fmt::format("{}, type {}, named {}", shape, type ? static_cast<int>(*type) : 0, quotedNameOf(array));
}

std::string ArrayComparison::describeShape(vtkCellArray& cells) const {
  return fmt::format("{} cells", groupDigits(cells.GetNumberOfCells()));
}

template <class T>
bool ArrayComparison::compareShapes(T* left, T* right, const Report& report) {
  ComparedValue leftShape;
  ComparedValue rightShape;
  if (left != nullptr) {
    leftShape = describeShape(*left);
  }
  if (right != nullptr) {
    rightShape = describeShape(*right);
  }
  if (leftShape != rightShape) {
    report(leftShape, rightShape, {});
  }
  return left != nullptr && right != nullptr;
}

void ArrayComparison::compare(vtkDataArray* left, vtkDataArray* right, const Report& report) {
  if (left != nullptr && right != nullptr) {
    ++_count;
  }
  compareData(left, right, report);
}

void ArrayComparison::compareData(vtkDataArray* left, vtkDataArray* right, const Report& report) {
  if (compareShapes(left, right, report) && left->GetNumberOfComponents() == right->GetNumberOfComponents() &&
      left->GetNumberOfTuples() == right->GetNumberOfTuples()) {
    reportValues({left, right}, report, [&] { return compareValues(*left, *right); });
  }
}

void ArrayComparison::compare(vtkCellArray* left, vtkCellArray* right, const Report& report) {
  if (!compareShapes(left, right, report)) {
    return;
  }
  ++_count;
  const Arrays arrays{left->GetOffsetsArray(), right->GetOffsetsArray(), left->GetConnectivityArray(),
                      right->GetConnectivityArray()};
  if (_rules.isBitwise) {
    compareData(arrays[0], arrays[1], report);
    compareData(arrays[2], arrays[3], report);
  } else if (left->GetNumberOfCells() == right->GetNumberOfCells()) {
    reportValues(arrays, report, [&] { return compareCells(*left, *right); });
  }
}

template <class Compare>
void ArrayComparison::reportValues(const Arrays& arrays, const Report& report, Compare&& compare) {
  if (arrays[0] == arrays[1] && arrays[2] == arrays[3]) {
    return;
  }
  const bool isLarge = std::ranges::any_of(arrays, [](vtkDataArray* array) {
    return array != nullptr && array->GetNumberOfValues() >= LARGE_ARRAY;
  });
  const auto known = isLarge ? _known.find(arrays) : _known.end();
  const Finding found = known != _known.end() ? known->second : compare();
  if (isLarge && known == _known.end()) {
    _known.emplace(arrays, found);
  }
  if (found) {
    report(found->left, found->right, found->extent);
  }
}

ArrayComparison::Finding ArrayComparison::compareValues(vtkDataArray& left, vtkDataArray& right) const {
  Finding found;
  const auto compare = [&]<class T>(std::span<const T> first, std::span<const T> second) {
    if (const auto extent = findExtent(first, second, _rules)) {
      const auto index = static_cast<std::size_t>(extent->index);
      found = Found{toComparedValue(first[index]), toComparedValue(second[index]), *extent};
    }
  };
  if (!haveSameLayout(left, right)) {
    compare(std::span<const double>(toDoubles(left)), std::span<const double>(toDoubles(right)));
  } else if (!haveSameBytes(left, right)) {
    visitValues(left, [&]<class T>(std::span<const T> values) {
      compare(values, std::span(static_cast<const T*>(right.GetVoidPointer(0)), values.size()));
    });
  }
  if (found) {
    const int components = left.GetNumberOfComponents();
    if (components > 1) {
      found->extent.component = static_cast<int>(found->extent.index % components);
    }
    found->extent.index /= std::max(components, 1);
  }
  return found;
}

ArrayComparison::Finding ArrayComparison::compareCells(vtkCellArray& left, vtkCellArray& right) const {
  const auto areSame = [](vtkDataArray* first, vtkDataArray* second) {
    return haveSameLayout(*first, *second) && first->GetNumberOfValues() == second->GetNumberOfValues() &&
           haveSameBytes(*first, *second);
  };
  if (areSame(left.GetOffsetsArray(), right.GetOffsetsArray()) &&
      areSame(left.GetConnectivityArray(), right.GetConnectivityArray())) {
    return std::nullopt;
  }
  Finding found;
  vtkNew<vtkIdList> first;
  vtkNew<vtkIdList> second;
  for (vtkIdType cell = 0; cell < left.GetNumberOfCells(); ++cell) {
    left.GetCellAtId(cell, first);
    right.GetCellAtId(cell, second);
    if (std::equal(first->begin(), first->end(), second->begin(), second->end())) {
      continue;
    }
    if (!found) {
      found = Found{toNumbers(*first), toNumbers(*second), {.total = left.GetNumberOfCells(), .index = cell}};
    }
    ++found->extent.count;
  }
  return found;
}

}  // namespace lum
