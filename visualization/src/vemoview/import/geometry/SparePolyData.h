#pragma once

#include <vtkSmartPointer.h>

class vtkPolyData;

namespace vemo {

// Most items of a large scene share the poly data of earlier ones, and their own is
// needed only until that is known. Reusing it spares a sixth of the time.

/// An empty poly data.
vtkSmartPointer<vtkPolyData> takePolyData();

/// Gives back one that nobody else has.
void returnPolyData(const vtkSmartPointer<vtkPolyData>& polyData);

}  // namespace vemo
