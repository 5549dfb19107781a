#pragma once

#include <vemo/base/Vector.h>

#include <vtkSmartPointer.h>

#include <string>

class vtkRenderer;
class vtkTextActor;
namespace lum {
class TextAttributes;
}

namespace vemo {

class PropGroup;

/// Where the place of a text lies within it: 0 at its left end, or bottom, 1 in
/// the middle, 2 at its right end, or top.
struct TextAlignment {
  int horizontal = 0;
  int vertical = 0;
};

/// A text of one or more lines that faces the viewer.
class TextLabel {
 public:
  /// Puts the text into the group, in the style of the attributes (null for
  /// that of fresh ones) but for its size. Bytes that are no UTF-8 become
  /// question marks; what is too long to be read is cut off.
  TextLabel(const std::string& text, const lum::TextAttributes* style, const TextAlignment& alignment,
            PropGroup& group);

  void setText(const std::string& text);

  /// The height of a line in pixels; nothing is seen of less than 1.
  void setLineHeight(double pixels, vtkRenderer& renderer);

  /// In pixels from the lower left corner of the renderer's part of the window.
  void moveTo(const Vector<2, double>& pixel);

  /// To a point of the model; hidden when that lies behind the viewer.
  void moveTo(const Vector<3, double>& point, vtkRenderer& renderer);

  /// The width and height of what is written, in pixels.
  Vector<2, double> getSize(vtkRenderer& renderer) const;

  void hide();

 private:
  vtkSmartPointer<vtkTextActor> _actor;
  double _mostPixels;
};

}  // namespace vemo
