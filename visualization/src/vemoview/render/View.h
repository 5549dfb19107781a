#pragma once

class vtkRenderer;

namespace lum {
class CameraAttributes;
class LightingAttributes;
}  // namespace lum

/// Points a renderer's camera. What is missing or of no use is made up for:
/// without a camera, with one that was never changed, or with one that stands
/// where it looks, all that is visible is framed; a view-up along the line of
/// sight is replaced; without a parallel scale all is framed from the camera's
/// direction. The actors are in the renderer already.
void setCamera(vtkRenderer& renderer, const lum::CameraAttributes* camera);

/// Gives a renderer lights that move with its camera, and a weak one at the
/// camera's place that fills their shadows. Without any light (of use) that one
/// has intensity 1.
void setLights(vtkRenderer& renderer, const lum::LightingAttributes* lighting);
