#pragma once

#include <vemo/resolve/Decoration.h>

class vtkTextProperty;

namespace vemo {

/// Of pictures, and of windows that do not say otherwise: as many as an inch has points.
inline constexpr int USUAL_DOTS_PER_INCH = 72;

/// Which point of a text is at its position.
struct TextAlignment {
  TextDecoration::Horizontal horizontal = TextDecoration::Horizontal::LEFT;
  TextDecoration::Vertical vertical = TextDecoration::Vertical::BOTTOM;
};

void setStyle(const TextStyle& style, const TextAlignment& alignment, vtkTextProperty& property);

/// @param pixels the height of a line, with the space to the next
void setFontSize(double pixels, int dotsPerInch, vtkTextProperty& property);

}  // namespace vemo
