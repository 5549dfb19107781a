#pragma once

#include "geometry/Box.h"
#include <vemo/render/Export.h>
#include <vemo/resolve/CanvasCamera.h>
#include <vemo/resolve/CanvasLights.h>

#include <vtkSmartPointer.h>

#include <vector>

class vtkCamera;
class vtkLight;
class vtkRenderer;

namespace vemo {

/// Sets position, direction and projection of a camera, as far as they are stated.
void pointCamera(vtkCamera& view, const CanvasCamera& camera);

/// Moves a renderer's camera so that a box that is not empty fills the picture, apart from a
/// margin.
void fitBox(vtkRenderer& renderer, const Box& box);

/// The box around all visible actors, and the box `others`.
Box visibleBounds(vtkRenderer& renderer, Box others);

/// Moves a renderer's camera so that all visible actors are in the picture, and the box
/// `others`, from whatever direction they are seen.
void frameAll(vtkRenderer& renderer, const Box& others);

/// Sets a renderer's camera, framing everything as far as the view is not stated:
/// the actors must have been added.
VEMO_RENDER_EXPORT void setCamera(vtkRenderer& renderer, const CanvasCamera& camera, const Box& others);

/// Shows as much to the left and right of a narrow view as one of this width by height does.
void widen(vtkRenderer& renderer, double aspect);

/// The lights of a canvas.
VEMO_RENDER_EXPORT std::vector<vtkSmartPointer<vtkLight>> makeLights(const CanvasLights& lights);

/// Adds them to a renderer, which then has no other.
VEMO_RENDER_EXPORT void setLights(vtkRenderer& renderer, const CanvasLights& lights);

}  // namespace vemo
