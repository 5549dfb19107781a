#pragma once

class vtkRenderer;
namespace lum {
class BackgroundAttributes;
}

namespace vemo {

/// Colours the whole of a renderer: evenly, or from colour 1 to colour 2. A
/// radial background has colour 1 in the centre and colour 2 in the corners.
void setBackground(vtkRenderer& renderer, const lum::BackgroundAttributes& background);

}  // namespace vemo
