#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/CanvasCamera.h>
#include <vemo/resolve/CanvasLights.h>

class vtkCamera;
class vtkRenderer;

namespace vemo {

/// Points a camera, without framing anything.
void pointCamera(vtkCamera& view, const CanvasCamera& camera);

/// Moves a renderer's camera so that everything that the renderer shows is seen,
/// and the other things, which are in a box.
void frameAll(vtkRenderer& renderer, Box others);

/// Points a renderer's camera, and frames everything where the camera leaves that
/// open. The actors are in the renderer already.
void setCamera(vtkRenderer& renderer, const CanvasCamera& camera, const Box& others);

void setLights(vtkRenderer& renderer, const CanvasLights& lights);

}  // namespace vemo
