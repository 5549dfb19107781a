#pragma once

#include "base/HugePages.h"

#include <vtkDataArray.h>

#include <cstddef>

namespace vemo {

/// Gives a new array room for so many tuples, which are not set.
inline void allocateTuples(vtkDataArray& array, vtkIdType tuples) {
  array.SetNumberOfTuples(tuples);
  const auto size =
      static_cast<std::size_t>(array.GetNumberOfValues()) * static_cast<std::size_t>(array.GetDataTypeSize());
  if (size > 0) {
    OS::preferHugePages(array.GetVoidPointer(0), size);
  }
}

}  // namespace vemo
