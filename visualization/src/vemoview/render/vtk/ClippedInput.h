#pragma once

#include <vemo/resolve/InstanceTransforms.h>

class vtkPlaneCollection;
class vtkPolyData;
class vtkPolyDataMapper;

namespace vemo {

/// Gives a mapper geometry that planes clip, in an instance with a transform (null
/// is the identity).
void setClippedInput(vtkPolyDataMapper& mapper, vtkPolyData& geometry, vtkPlaneCollection& planes,
                     const InstanceTransform* transform);

}  // namespace vemo
