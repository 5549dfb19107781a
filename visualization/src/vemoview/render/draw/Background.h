#pragma once

#include <vemo/resolve/Background.h>

class vtkRenderer;

namespace vemo {

/// Colours the whole of a renderer.
void setBackground(vtkRenderer& renderer, const Background& background);

}  // namespace vemo
