#pragma once

#include <vtkSmartPointer.h>

#include <vector>

class vtkCamera;

namespace vemo {

/// The cameras of a scene's canvases, in their order.
using CanvasCameras = std::vector<vtkSmartPointer<vtkCamera>>;

}  // namespace vemo
