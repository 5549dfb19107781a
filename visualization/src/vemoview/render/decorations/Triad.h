#pragma once

#include "vemoview/render/vtk/CanvasCameras.h"

namespace vemo {

struct CanvasResources;
class PropGroup;
struct TriadDecoration;

/// Adds three labelled arrows to a group: x red, y green, z blue. A triad that
/// turns with a canvas's camera follows it whatever turns it.
void addTriad(const TriadDecoration& triad, const CanvasCameras& cameras, CanvasResources& resources,
              PropGroup& group);

}  // namespace vemo
