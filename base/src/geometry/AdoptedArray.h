#pragma once

#include <vtkAOSDataArrayTemplate.h>

#include <memory>

namespace vemo {

/// The bytes of an archive entry, as the reader allocated them.
using EntryBlock = std::unique_ptr<unsigned char[]>;

/// Makes a block the storage of a VTK array: the array shows the first
/// `valueCount` values of the block, owns all of it, and frees it as the array
/// of bytes that it was allocated as. The number of components is set by the
/// caller, and divides the count.
template <class T>
void adoptBlock(vtkAOSDataArrayTemplate<T>& array, EntryBlock block, vtkIdType valueCount) {
  // new unsigned char[] aligns for every fundamental type, and its bytes may
  // hold objects of any of them.
  T* const values = reinterpret_cast<T*>(block.release());
  array.SetArray(values, valueCount, 0, vtkAOSDataArrayTemplate<T>::VTK_DATA_ARRAY_USER_DEFINED);
  array.SetArrayFreeFunction([](void* bytes) { delete[] static_cast<unsigned char*>(bytes); });
}

}  // namespace vemo
