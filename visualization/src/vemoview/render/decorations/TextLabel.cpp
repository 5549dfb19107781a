#include "vemoview/render/decorations/TextLabel.h"

#include "vemoview/render/vtk/PropGroup.h"
#include "vemoview/render/vtk/Screen.h"

#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkTextActor.h>
#include <vtkTextProperty.h>

#include <algorithm>
#include <cmath>

namespace vemo {

namespace {

/// VTK makes no texture for a text in a single row or column of pixels, and complains when it
/// draws it.
bool hasRoomForTexts(vtkRenderer& renderer) {
  const auto size = sizeInPixels(renderer);
  return size[0] > 1.0 && size[1] > 1.0;
}

}  // namespace

TextLabel::TextLabel(const std::string& text, const TextStyle& style, const TextAlignment& alignment,
                     PropGroup& group)
    : _actor(vtkSmartPointer<vtkTextActor>::New()), _limit(text) {
  setText(text);
  setStyle(style, alignment, *_actor->GetTextProperty());
  _actor->PickableOff();
  group.add(_actor);
}

void TextLabel::setText(const std::string& text) {
  _actor->SetInput(withoutFormulas(text).c_str());
  _limit = LineHeightLimit(text);
}

void TextLabel::setLineHeight(double pixels, vtkRenderer& renderer) {
  const double height = std::min(pixels, _limit.in(windowSize(renderer)));
  _actor->SetVisibility(height >= 1.0 && _actor->GetInput()[0] != '\0' && hasRoomForTexts(renderer));
  vtkRenderWindow* const window = renderer.GetRenderWindow();
  setFontSize(height, window != nullptr ? window->GetDPI() : USUAL_DOTS_PER_INCH, *_actor->GetTextProperty());
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
