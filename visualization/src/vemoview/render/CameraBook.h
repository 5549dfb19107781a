#pragma once

#include <vtkSmartPointer.h>

#include <map>

class vtkRenderer;

namespace lum {
class CameraAttributes;
}

/// The renderers that look through a scene's cameras.
using CameraBook = std::map<const lum::CameraAttributes*, vtkSmartPointer<vtkRenderer>>;
