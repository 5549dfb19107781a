#pragma once

#include <vemo/base/Vector.h>

class vtkRenderer;
namespace lum {
class CameraAttributes;
class LightingAttributes;
}  // namespace lum

namespace vemo {

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

/// The unit vector of an upward direction that is seen across a line of sight
/// (a unit vector); y or z where the one given lies along it or is of no use.
Vector<3, double> usableViewUp(const Vector<3, double>& viewUp, const Vector<3, double>& sight);

}  // namespace vemo
