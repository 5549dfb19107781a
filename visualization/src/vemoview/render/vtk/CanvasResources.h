#pragma once

#include "vemoview/render/vtk/LookupTables.h"

#include <vtkPlaneCollection.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

namespace vemo {

/// What everything drawn in a canvas shares.
struct CanvasResources {
  vtkSmartPointer<vtkRenderer> renderer;
  vtkSmartPointer<vtkPlaneCollection> clipPlanes;
  LookupTables tables;
};

}  // namespace vemo
