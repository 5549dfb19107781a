#pragma once

#include <vemo/base/Vector.h>
#include <vemo/render/Export.h>
#include <vemo/resolve/PickRay.h>

#include <optional>

class vtkRenderer;

namespace vemo {

/// Positions and sizes on the screen, for renderers in a window.

/// The width and height of a renderer's part of the window, in pixels.
Vector<2, double> sizeInPixels(vtkRenderer& renderer);

/// Of the whole window, in pixels, or of the part of it that a scene takes for its window.
Vector<2, double> windowSize(vtkRenderer& renderer);
double windowHeight(vtkRenderer& renderer);

/// Gives a renderer's scene a part of the window, until the part is removed.
/// @param part left, bottom, right and top, as fractions of the window's size
VEMO_RENDER_EXPORT void setScenePart(vtkRenderer& renderer, const double* part);
VEMO_RENDER_EXPORT void removeScenePart(vtkRenderer& renderer);

bool isBehindViewer(vtkRenderer& renderer, const Vector3& point);

/// The pixel, from the lower left corner of the renderer's part of the window,
/// at which a point of the model is seen; nothing for a point behind the viewer in
/// perspective.
std::optional<Vector<2, double>> project(vtkRenderer& renderer, const Vector3& point);

/// How many pixels a unit of length has at a point of the model; 0 for a point
/// behind the viewer.
double pixelsPerUnit(vtkRenderer& renderer, const Vector3& point);

/// The view through which a user sees a renderer's scene.
PickView pickViewOf(vtkRenderer& renderer);

}  // namespace vemo
