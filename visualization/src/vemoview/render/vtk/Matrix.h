#pragma once

#include <vemo/resolve/InstanceTransforms.h>

#include <vtkMatrix4x4.h>
#include <vtkSmartPointer.h>

namespace vemo {

inline vtkSmartPointer<vtkMatrix4x4> toMatrix(const InstanceTransform& transform) {
  auto matrix = vtkSmartPointer<vtkMatrix4x4>::New();
  matrix->DeepCopy(transform.data());
  return matrix;
}

}  // namespace vemo
