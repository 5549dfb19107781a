#include "vemoview/render/decorations/TextLabel.h"

#include "vemoview/render/vtk/PropGroup.h"
#include "vemoview/render/vtk/Screen.h"
#include "vemoview/resolve/decorations/TextStyleResolver.h"

#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkTextActor.h>
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

/// VTK numbers alignments from left to right and from bottom to top, as we do.
void applyStyle(const TextStyle& style, const TextAlignment& alignment, vtkTextProperty& property) {
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
  property.SetJustification(static_cast<int>(alignment.horizontal));
  property.SetVerticalJustification(static_cast<int>(alignment.vertical));
}

/// VTK takes a text between two dollar signs for a formula, unless backslashes precede them.
std::string withoutFormulas(const std::string& text) {
  std::string result;
  for (const char byte : text) {
    result += byte == '$' ? "\\$" : std::string(1, byte);
  }
  return result;
}

}  // namespace

TextLabel::TextLabel(const std::string& text, const TextStyle& style, const TextAlignment& alignment,
                     PropGroup& group)
    : _actor(vtkSmartPointer<vtkTextActor>::New()) {
  setText(text);
  applyStyle(style, alignment, *_actor->GetTextProperty());
  _actor->PickableOff();
  group.add(_actor);
}

void TextLabel::setText(const std::string& text) {
  _actor->SetInput(withoutFormulas(text).c_str());
}

void TextLabel::setLineHeight(double pixels, vtkRenderer& renderer) {
  // The size of a font is that of its letters, without the space between lines.
  constexpr double LETTERS_PER_LINE = 0.85;
  constexpr double POINTS_PER_INCH = 72.0;
  const double height = std::min(pixels, greatestLineHeight(_actor->GetInput(), windowSize(renderer)));
  _actor->SetVisibility(height >= 1.0 && _actor->GetInput()[0] != '\0');
  if (!(height >= 1.0)) {
    return;
  }
  const double dpi =
      renderer.GetRenderWindow() != nullptr ? renderer.GetRenderWindow()->GetDPI() : POINTS_PER_INCH;
  const auto points = static_cast<int>(std::lround(height * LETTERS_PER_LINE * POINTS_PER_INCH / dpi));
  const int shadow = std::max(1, static_cast<int>(std::lround(height / 18.0)));
  _actor->GetTextProperty()->SetFontSize(std::max(points, 1));
  _actor->GetTextProperty()->SetShadowOffset(shadow, -shadow);
}

void TextLabel::moveTo(const Vector<2, double>& pixel) {
  // Farther away than any window reaches, or not a number.
  constexpr double FAR = 1e6;
  if (std::abs(pixel[0]) < FAR && std::abs(pixel[1]) < FAR) {
    _actor->SetPosition(std::round(pixel[0]), std::round(pixel[1]));
  } else {
    hide();
  }
}

void TextLabel::moveTo(const Vector3& point, vtkRenderer& renderer) {
  if (const auto pixel = project(renderer, point)) {
    moveTo(*pixel);
  } else {
    hide();
  }
}

Vector<2, double> TextLabel::getSize(vtkRenderer& renderer) const {
  Vector<2, double> size;
  if (_actor->GetVisibility() != 0) {
    _actor->GetSize(&renderer, size.data());
  }
  return size;
}

void TextLabel::hide() {
  _actor->VisibilityOff();
}

}  // namespace vemo
