#pragma once

#include <vemo/resolve/CanvasCamera.h>
#include <vemo/resolve/CanvasLights.h>

class vtkCamera;
class vtkRenderer;

namespace vemo {

/// Points a camera, without framing anything.
void pointCamera(vtkCamera& view, const CanvasCamera& camera);

/// Points a renderer's camera, and frames what the renderer shows where the
/// camera leaves that open. The actors are in the renderer already.
void setCamera(vtkRenderer& renderer, const CanvasCamera& camera);

void setLights(vtkRenderer& renderer, const CanvasLights& lights);

}  // namespace vemo
