#pragma once

#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkDataArray.h>

#include <algorithm>
#include <string>

namespace vemo {

/// Null when there is none of the name.
inline vtkDataArray* findArray(const lum::ArrayTable& table, const std::string& name) {
  const auto found = std::ranges::find_if(table, [&](const vtkSmartPointer<vtkDataArray>& array) {
    return array->GetName() != nullptr && array->GetName() == name;
  });
  return found == table.end() ? nullptr : found->Get();
}

}  // namespace vemo
