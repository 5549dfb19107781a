#pragma once

#include <vtkDataArray.h>
#include <vtkType.h>

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace lum {

/// Calls visit with the values of an array, in their own type; those of an
/// array that does not hold them in one block are visited as doubles.
template <class Visit>
void visitValues(vtkDataArray& array, Visit&& visit) {
  const auto count = static_cast<std::size_t>(array.GetNumberOfValues());
  if (array.HasStandardMemoryLayout()) {
    switch (array.GetDataType()) {
      vtkTemplateMacro(
          visit(std::span<const VTK_TT>(static_cast<const VTK_TT*>(array.GetVoidPointer(0)), count));
          return );
      default:
        break;
    }
  }
  const auto components = static_cast<std::size_t>(std::max(array.GetNumberOfComponents(), 1));
  std::vector<double> copy(count);
  for (std::size_t i = 0; i < count; ++i) {
    copy[i] = array.GetComponent(static_cast<vtkIdType>(i / components), static_cast<int>(i % components));
  }
  visit(std::span<const double>(copy));
}

}  // namespace lum
