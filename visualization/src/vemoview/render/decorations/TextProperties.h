#pragma once

#include <vemo/resolve/Decoration.h>

#include <string>

class vtkTextProperty;

namespace vemo {

/// Of pictures, and of windows that do not say otherwise: as many as an inch has points.
inline constexpr int USUAL_DOTS_PER_INCH = 72;

/// Which point of a text is at its position.
struct TextAlignment {
  TextDecoration::Horizontal horizontal = TextDecoration::Horizontal::LEFT;
  TextDecoration::Vertical vertical = TextDecoration::Vertical::BOTTOM;
};

/// VTK takes a text between two dollar signs for a formula, unless backslashes precede them.
std::string withoutFormulas(const std::string& text);

void setStyle(const TextStyle& style, const TextAlignment& alignment, vtkTextProperty& property);

/// @param pixels the height of a line, with the space to the next
void setFontSize(double pixels, int dotsPerInch, vtkTextProperty& property);

}  // namespace vemo
