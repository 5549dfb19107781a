#include "vemoview/render/decorations/TextLabel.h"

#include "vemoview/render/draw/PropGroup.h"
#include "vemoview/render/draw/Screen.h"

#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkTextActor.h>
#include <vtkTextProperty.h>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace vemo {

namespace {

constexpr std::size_t MOST_BYTES = 2000;

/// The number of bytes of the first character of a text; 0 if it is not UTF-8.
std::size_t characterLength(std::string_view text) {
  const auto byte = [=](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  if (first < 0x80) {
    return 1;
  }
  const std::size_t length = first >= 0xC2 && first < 0xE0   ? 2
                             : first >= 0xE0 && first < 0xF0 ? 3
                             : first >= 0xF0 && first < 0xF5 ? 4
                                                             : 0;
  if (length == 0 || text.size() < length) {
    return 0;
  }
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) {
      return 0;
    }
  }
  // Overlong forms, surrogates, and numbers beyond the last character.
  const bool isForbidden = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xED && byte(1) >= 0xA0) ||
                           (first == 0xF0 && byte(1) < 0x90) || (first == 0xF4 && byte(1) >= 0x90);
  return isForbidden ? 0 : length;
}

std::string readableText(std::string_view text) {
  std::string result;
  while (!text.empty() && result.size() < MOST_BYTES) {
    const std::size_t length = characterLength(text);
    const bool isControl = length == 1 && static_cast<unsigned char>(text[0]) < ' ' && text[0] != '\n';
    if (length == 0) {
      result += '?';
    } else if (!isControl) {
      result += text.substr(0, length);
    }
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return result;
}

/// The greatest height of lines at which a text still fits into a picture.
double greatestLineHeight(const std::string& text) {
  constexpr double LARGEST_PICTURE = 8192.0;
  std::size_t lines = 1;
  std::size_t longest = 1;
  std::size_t length = 0;
  for (const char character : text) {
    length = character == '\n' ? 0 : length + 1;
    lines += character == '\n' ? 1 : 0;
    longest = std::max(longest, length);
  }
  return LARGEST_PICTURE / static_cast<double>(std::max(lines, longest));
}

int vtkFamily(TextStyle::Family family) {
  return family == TextStyle::Family::COURIER ? VTK_COURIER
         : family == TextStyle::Family::TIMES ? VTK_TIMES
                                              : VTK_ARIAL;
}

/// VTK numbers alignments from left to right and from bottom to top, as we do.
void applyStyle(const TextStyle& style, const TextAlignment& alignment, vtkTextProperty& property) {
  const auto channel = [&](std::size_t i) { return static_cast<double>(style.rgba[i]) / 255.0; };
  property.SetFontFamily(vtkFamily(style.family));
  property.SetBold(style.isBold);
  property.SetItalic(style.isItalic);
  property.SetShadow(style.hasShadow);
  property.SetColor(channel(0), channel(1), channel(2));
  property.SetOpacity(channel(3));
  property.SetJustification(static_cast<int>(alignment.horizontal));
  property.SetVerticalJustification(static_cast<int>(alignment.vertical));
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
  const std::string readable = readableText(text);
  _mostPixels = greatestLineHeight(readable);
  _actor->SetInput(readable.c_str());
}

void TextLabel::setLineHeight(double pixels, vtkRenderer& renderer) {
  // The size of a font is that of its letters, without the space between lines.
  constexpr double LETTERS_PER_LINE = 0.85;
  constexpr double POINTS_PER_INCH = 72.0;
  const double height = std::min(pixels, _mostPixels);
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

void TextLabel::moveTo(const Vector<3, double>& point, vtkRenderer& renderer) {
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
