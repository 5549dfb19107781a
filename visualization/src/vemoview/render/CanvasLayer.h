#pragma once

#include "vemoview/render/CameraBook.h"

#include <vtkSmartPointer.h>

class vtkRenderer;

namespace lum {
class SceneCanvas;
}

/// The renderer that shows what a canvas holds, in the canvas's part of the
/// window: drawables, lights, clipping planes, camera, but not its background.
/// Null when no part of the window is the canvas's. The layer is noted in the
/// book if the canvas has a camera.
vtkSmartPointer<vtkRenderer> makeLayer(const lum::SceneCanvas& canvas, CameraBook& cameras);
