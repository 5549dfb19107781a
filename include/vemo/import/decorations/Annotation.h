#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/decorations/Font.h>
#include <vemo/import/items/GraphicsItem.h>
#include <vemo/scenegraph/attributes/AnnotationAttributes.h>

#include <string>

namespace vemo {

/// A text in the window or in the model. Scene files have them directly under
/// the scene; hosts may add them to any assembly.
class VEMO_IMPORT_EXPORT Annotation : public GraphicsItem {
 public:
  static inline const std::string XML_ENTITY = "annotation";
  static const KeyTable<Annotation> KEYS;
  // In the order of the enumerations.
  static inline const std::string MODES[] = {"WINDOW", "MODEL", ""};
  static inline const std::string HORIZONTAL_ALIGNMENTS[] = {"LEFT", "CENTER", "RIGHT", ""};
  static inline const std::string VERTICAL_ALIGNMENTS[] = {"BOTTOM", "CENTER", "TOP", ""};

  explicit Annotation(std::string name);
  ~Annotation() override;

  /// Values that cannot be read keep their defaults, with a warning.
  void read(const QxElement& element, SceneFileReader* reader) override;

  /// Adds the text to the foreground canvas in the window mode, to the
  /// collection in the model mode. Nothing is added without a text.
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

  /// UTF-8; line feeds break lines.
  void setText(const std::string& text) { _text = text; }
  const std::string& getText() const { return _text; }
  void setMode(lum::CoordinateSpace mode) { _mode = mode; }
  lum::CoordinateSpace getMode() const { return _mode; }
  /// The point of the text that the alignments name: in fractions of the
  /// window's width and height, or in model coordinates.
  void setPosition(const Vector<3, double>& position) { _position = position; }
  const Vector<3, double>& getPosition() const { return _position; }
  void setAlignment(lum::HorizontalAlignment horizontal, lum::VerticalAlignment vertical);
  /// The height of a line as a fraction of the window's; 0: the renderer's default.
  void setTextHeight(double height) { _textHeight = height; }
  void setFont(const Font& font) { _font = font; }

 private:
  std::string _text;
  lum::CoordinateSpace _mode = lum::CoordinateSpace::WINDOW;
  Vector<3, double> _position{};
  lum::HorizontalAlignment _horizontal = lum::HorizontalAlignment::LEFT;
  lum::VerticalAlignment _vertical = lum::VerticalAlignment::BOTTOM;
  double _textHeight = 0.0;
  Font _font;
};

}  // namespace vemo
