#pragma once

#include <vemo/render/Export.h>
#include <vemo/resolve/Background.h>

class vtkRenderer;

namespace vemo {

/// Colours the whole of a renderer.
VEMO_RENDER_EXPORT void setBackground(vtkRenderer& renderer, const Background& background);

}  // namespace vemo
