#pragma once

#include "base/HugePages.h"
#include "base/MemoryReserve.h"

#include <vtkCellArray.h>
#include <vtkDataArray.h>

#include <cstddef>

namespace vemo {

/// Gives a new array so many tuples, which are not set. Throws std::bad_alloc, which
/// VTK only does in some cases.
inline void setTupleCount(vtkDataArray& array, vtkIdType tuples) {
  array.SetNumberOfTuples(tuples);
  if (array.GetNumberOfTuples() != tuples) {
    OS::throwNoMemory();
  }
}

/// The same for arrays that are filled once, from the first tuple to the last.
inline void allocateTuples(vtkDataArray& array, vtkIdType tuples) {
  setTupleCount(array, tuples);
  const auto size =
      static_cast<std::size_t>(array.GetNumberOfValues()) * static_cast<std::size_t>(array.GetDataTypeSize());
  if (size > 0) {
    OS::preferHugePages(array.GetVoidPointer(0), size);
  }
}

/// Gives an empty array room for exactly so many cells and corners. Throws std::bad_alloc.
inline void allocateCells(vtkCellArray& array, vtkIdType cells, vtkIdType corners) {
  if (!array.AllocateExact(cells, corners)) {
    OS::throwNoMemory();
  }
}

}  // namespace vemo
