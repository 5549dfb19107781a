#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/CanvasCamera.h>
#include <vemo/resolve/CanvasLights.h>

class vtkCamera;
class vtkRenderer;

namespace vemo {

/// Sets position, direction and projection of a camera, as far as they are stated.
void pointCamera(vtkCamera& view, const CanvasCamera& camera);

/// Moves a renderer's camera so that all visible actors are in the picture, and the box
/// `others`.
void frameAll(vtkRenderer& renderer, Box others);

/// Sets a renderer's camera, framing everything as far as the view is not stated:
/// the actors must have been added.
void setCamera(vtkRenderer& renderer, const CanvasCamera& camera, const Box& others);

void setLights(vtkRenderer& renderer, const CanvasLights& lights);

}  // namespace vemo
