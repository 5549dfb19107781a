#pragma once

#include <vemo/base/Vector.h>
#include <vemo/resolve/CanvasCamera.h>
#include <vemo/resolve/InstanceTransforms.h>
#include <vemo/scenegraph/coloring/ColorTable.h>

#include <vtkSmartPointer.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>

class vtkDataArray;
namespace lum {
class Drawable;
}

namespace vemo {

/// How text is written, except for its size.
struct TextStyle {
  enum class Family { ARIAL, COURIER, TIMES };

  Family family = Family::ARIAL;
  /// The file of a font that replaces that of the family, in bold or italic if
  /// available; empty for the renderer's own fonts.
  std::string fontFile;
  bool isBold = false;
  bool isItalic = false;
  bool hasShadow = false;
  /// Red, green, blue, alpha.
  std::array<std::uint8_t, 4> rgba{0, 0, 0, 255};
};

/// Texts are UTF-8 without control characters except line breaks.
///
/// Positions in the window are fractions of the canvas's width and height, from
/// its lower left corner. Line heights are fractions of the window's height.

/// A colour bar with a title and numbers.
struct LegendDecoration {
  ColorTable table;
  std::string title;
  bool isVertical = true;
  /// Of the lower left corner, and of everything together: within the canvas.
  Vector<2, double> position;
  Vector<2, double> size;
  /// The lower left and the upper right corner of where no other legend is, around its place:
  /// the room for text that its size does not suffice for.
  Vector<2, double> roomLow{0.0, 0.0};
  Vector<2, double> roomHigh{1.0, 1.0};
  int labelCount = 0;
  /// One printf conversion for a double, possibly with text around it; empty for "%.4g", with
  /// more digits where neighbouring numbers would be equal.
  std::string labelFormat;
  TextStyle style;
  double lineHeight = 0.0;
};

/// A text of one or more lines that faces the viewer.
struct TextDecoration {
  enum class Horizontal { LEFT, CENTER, RIGHT };
  enum class Vertical { BOTTOM, CENTER, TOP };

  std::string text;
  bool isInModel = false;
  /// In the model, where it is never covered, or in the window.
  Vector3 position;
  /// Whether a picture of the whole model includes its position.
  bool isFramed = true;
  /// Which point of the text is at the position.
  Horizontal horizontal = Horizontal::LEFT;
  Vertical vertical = Vertical::BOTTOM;
  TextStyle style;
  double lineHeight = 0.0;
};

/// An unlit image on a parallelogram, in the model or in the window.
struct ImageDecoration {
  int width = 0;
  int height = 0;
  /// One tuple of bytes a pixel, rows from bottom to top; grey, grey and alpha,
  /// red green blue, or these and alpha.
  vtkSmartPointer<vtkDataArray> pixels;
  bool isInModel = false;
  /// The lower left corner, and the edges that start there.
  Vector3 corner;
  Vector3 xAxis;
  Vector3 yAxis;
  /// Of an image in the model, and whether the canvas's clipping planes apply to it.
  std::optional<InstanceTransform> transform;
  bool isClipped = false;
  /// Above 0, up to 1.
  double opacity = 1.0;
};

/// Three labelled arrows.
struct TriadDecoration {
  /// The camera of a canvas, by its index in the scene, or one that no canvas
  /// has.
  using Camera = std::variant<std::size_t, CanvasCamera>;

  /// Of an axis in the model, unless the size on the screen is constant.
  static constexpr double LENGTH = 1.5;
  /// Of an axis, in heights of a label, where it is constant.
  static constexpr double LENGTH_IN_LABELS = 3.0;
  /// The same at the viewer and behind, where it has no size on the screen.
  static constexpr double UNSEEN_LENGTH = 1e-6;
  /// In axes' lengths.
  static constexpr double LABEL_POSITION = 1.2;
  /// Of a label, in heights of the canvas: leaves room for the axes.
  static constexpr double MOST_LABEL_HEIGHT = 0.16;

  /// Directions of x, y and z; unit vectors.
  std::array<Vector3, 3> axes;
  Vector3 position;
  /// Whether its size on the screen is constant.
  bool hasScreenSize = true;
  double labelHeight = 0.05;
  /// Of x, y and z; nothing for a triad without labels.
  std::optional<std::array<std::string, 3>> labels;
  TextStyle style;
  /// The camera whose view of the model's axes it shows; nothing for a triad
  /// that keeps its directions.
  std::optional<Camera> camera;
};

/// The visible form of a drawable that has no geometry. A drawable with several
/// instances has several decorations.
struct Decoration {
  using Content = std::variant<LegendDecoration, TextDecoration, ImageDecoration, TriadDecoration>;

  const lum::Drawable* drawable = nullptr;
  Content content;
};

}  // namespace vemo
