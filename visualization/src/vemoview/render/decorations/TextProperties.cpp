#include "vemoview/render/decorations/TextProperties.h"

#include <vtkTextProperty.h>

#include <algorithm>
#include <cmath>

namespace vemo {

namespace {

int vtkFamily(TextStyle::Family family) {
  return family == TextStyle::Family::COURIER ? VTK_COURIER
         : family == TextStyle::Family::TIMES ? VTK_TIMES
                                              : VTK_ARIAL;
}

}  // namespace

std::string withoutFormulas(const std::string& text) {
  std::string result;
  for (const char byte : text) {
    result += byte == '$' ? "\\$" : std::string(1, byte);
  }
  return result;
}

void setStyle(const TextStyle& style, const TextAlignment& alignment, vtkTextProperty& property) {
  const auto channel = [&](std::size_t i) { return static_cast<double>(style.rgba[i]) / 255.0; };
  if (style.fontFile.empty()) {
    property.SetFontFamily(vtkFamily(style.family));
  } else {
    property.SetFontFamily(VTK_FONT_FILE);
    property.SetFontFile(style.fontFile.c_str());
  }
  property.SetBold(style.isBold);
  property.SetItalic(style.isItalic);
  property.SetShadow(style.hasShadow);
  property.SetColor(channel(0), channel(1), channel(2));
  property.SetOpacity(channel(3));
  // VTK numbers alignments from left to right and from bottom to top, as we do.
  property.SetJustification(static_cast<int>(alignment.horizontal));
  property.SetVerticalJustification(static_cast<int>(alignment.vertical));
}

void setFontSize(double pixels, int dotsPerInch, vtkTextProperty& property) {
  // The size of a font is that of its letters, without the space between lines.
  constexpr double LETTERS_PER_LINE = 0.85;
  constexpr double POINTS_PER_INCH = 72.0;
  const auto points =
      static_cast<int>(std::lround(pixels * LETTERS_PER_LINE * POINTS_PER_INCH / dotsPerInch));
  const int shadow = std::max(1, static_cast<int>(std::lround(pixels / 18.0)));
  property.SetFontSize(std::max(points, 1));
  property.SetShadowOffset(shadow, -shadow);
}

}  // namespace vemo
