#pragma once

#include <vemo/import/Readable.h>

#include <vtkSmartPointer.h>

#include <string>

class vtkTextProperty;
namespace lum {
class TextAttributes;
}

namespace vemo {

/// The style of a text: face, bold, italic, shadow, colour.
class VEMO_IMPORT_EXPORT Font : public Readable {
 public:
  static inline const std::string XML_ENTITY = "font";

  /// Plain black Arial.
  Font();
  /// A copy has a text property of its own.
  Font(const Font& other);
  Font& operator=(const Font& other);
  ~Font() override;

  void read(const QxElement& element, SceneFileReader* reader) override;

  /// Gives the style to a text of the scene graph. Its colour is opaque.
  void applyTo(lum::TextAttributes& attributes) const;

  vtkTextProperty* getTextProperty() const;

 private:
  static inline const std::string XML_ATTRIB_FACE_NAME = "facename";
  static inline const std::string XML_ATTRIB_BOLD = "bold";
  static inline const std::string XML_ATTRIB_ITALIC = "italic";
  static inline const std::string XML_ATTRIB_SHADOW = "shadow";
  static inline const std::string XML_ATTRIB_TEXT_COLOR = "textColor";
  static inline const std::string FACE_COURIER = "Courier";
  static inline const std::string FACE_TIMES = "Times";

  vtkSmartPointer<vtkTextProperty> _textProperty;
};

}  // namespace vemo
