#pragma once

#include <vemo/import/reading/Readable.h>
#include <vemo/import/xml/Color.h>

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
  /// The faces, in the order of Face.
  static inline const std::string FACES[] = {"Arial", "Courier", "Times", ""};
  enum class Face { ARIAL, COURIER, TIMES };
  /// The settings of an element.
  struct Style {
    Face face = Face::ARIAL;
    bool bold = false;
    bool italic = false;
    bool shadow = false;
    Color color;
  };
  static const KeyTable<Style> KEYS;

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
  vtkSmartPointer<vtkTextProperty> _textProperty;
};

}  // namespace vemo
