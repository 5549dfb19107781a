#pragma once

#include <vtkSmartPointer.h>

#include <map>

class vtkRenderer;
namespace lum {
class CameraAttributes;
}

namespace vemo {

/// The renderers that look through a scene's cameras.
struct CameraBook : std::map<const lum::CameraAttributes*, vtkSmartPointer<vtkRenderer>> {};

}  // namespace vemo
