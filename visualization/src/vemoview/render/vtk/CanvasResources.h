#pragma once

#include "vemoview/render/vtk/LookupTables.h"

#include <vtkPlaneCollection.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

namespace vemo {

/// Resources shared by everything drawn in a canvas.
struct CanvasResources {
  vtkSmartPointer<vtkRenderer> renderer;
  vtkSmartPointer<vtkPlaneCollection> clipPlanes;
  LookupTables tables;
};

}  // namespace vemo
