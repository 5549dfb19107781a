#include "geometry/Box.h"
#include "vemoview/render/decorations/TextProperties.h"
#include "vemoview/resolve/decorations/TextStyleResolver.h"
#include <vemo/render/MeasureText.h>
#include <vemo/resolve/UsualPicture.h>

#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkStdString.h>
#include <vtkTextProperty.h>
#include <vtkTextRenderer.h>

#include <algorithm>
#include <array>

namespace vemo {

namespace {

/// Around all pixels that are not transparent, of red, green, blue and alpha.
Box inkOf(vtkImageData& pixels) {
  constexpr int CHANNELS = 4;
  const int* const extent = pixels.GetExtent();
  Box ink;
  for (int y = extent[2]; y <= extent[3]; ++y) {
    const auto* alpha = static_cast<const unsigned char*>(pixels.GetScalarPointer(extent[0], y, 0)) + 3;
    for (int x = extent[0]; x <= extent[1]; ++x, alpha += CHANNELS) {
      if (*alpha != 0) {
        ink.add(Vector3{static_cast<double>(x), static_cast<double>(y), 0.0});
        ink.add(Vector3{x + 1.0, y + 1.0, 0.0});
      }
    }
  }
  return ink;
}

}  // namespace

std::optional<TextBox> measureText(const TextDecoration& text, double lineHeight) {
  // Pictures are drawn so much larger, for smooth edges.
  constexpr double ENLARGEMENT = 2.0;
  const Vector<2, double> window{ENLARGEMENT * USUAL_WIDTH, ENLARGEMENT * USUAL_HEIGHT};
  const double height = std::min(ENLARGEMENT * lineHeight, LineHeightLimit(text.text).in(window));
  if (!(height >= 1.0)) {
    return std::nullopt;
  }
  vtkNew<vtkTextProperty> property;
  setStyle(text.style, {text.horizontal, text.vertical}, *property);
  setFontSize(height, USUAL_DOTS_PER_INCH, *property);
  vtkNew<vtkImageData> pixels;
  std::array<int, 2> size{};
  if (!vtkTextRenderer::GetInstance()->RenderString(property, withoutFormulas(text.text), pixels, size.data(),
                                                    USUAL_DOTS_PER_INCH)) {
    return std::nullopt;
  }
  const Box ink = inkOf(*pixels);
  return ink.isEmpty() ? std::nullopt
                       : std::optional<TextBox>({{ink.low[0] / ENLARGEMENT, ink.low[1] / ENLARGEMENT},
                                                 {ink.high[0] / ENLARGEMENT, ink.high[1] / ENLARGEMENT}});
}

}  // namespace vemo
