#pragma once

#include <vtkDataArray.h>
#include <vtkType.h>
#include <vtkWeakPointer.h>

#include <algorithm>
#include <cstddef>
#include <unordered_map>

namespace vemo {

/// Results for large arrays, computed once for each, however many uses it has. An array that changed since
/// then (`Modified`), or that was made where another one was, is a new one.
template <class Result>
class KnownArrays {
 public:
  /// What the function returns for the array, now or earlier.
  template <class Compute>
  Result get(vtkDataArray& array, const Compute& compute) {
    if (array.GetNumberOfValues() < LARGE) {
      return compute(array);
    }
    Known& known = _known[&array];
    if (known.array == nullptr || known.time != array.GetMTime()) {
      known = {&array, array.GetMTime(), compute(array)};
      dropGone();
    }
    return known.result;
  }

 private:
  struct Known {
    vtkWeakPointer<vtkDataArray> array;
    vtkMTimeType time = 0;
    Result result{};
  };

  static constexpr vtkIdType LARGE = 1024;

  /// From time to time: a stream of changes has any number of arrays.
  void dropGone() {
    if (_known.size() >= _nextDrop) {
      std::erase_if(_known, [](const auto& each) { return each.second.array == nullptr; });
      _nextDrop = std::max(LEAST_DROP, 2 * _known.size());
    }
  }

  static constexpr std::size_t LEAST_DROP = 64;

  std::unordered_map<const vtkDataArray*, Known> _known;
  std::size_t _nextDrop = LEAST_DROP;
};

}  // namespace vemo
