#pragma once

#include <vemo/import/decorations/Image.h>

#include <string>

namespace vemo {

/// An upright picture, parallel to the x and y axes.
class VEMO_IMPORT_EXPORT Image2D : public Image {
 public:
  static inline const std::string XML_ENTITY = "image2d";
  struct Rectangle {
    Vector<3, double> position{0.0, 0.0, 0.0};
    Vector<3, double> size{0.2, 0.2, 0.0};
  };
  static const KeyTable<Rectangle> KEYS;

  /// At the lower left corner of the window, with a fifth of its width and height.
  explicit Image2D(std::string name);
  ~Image2D() override;

  /// The lower left corner; width and height are the first two numbers of the
  /// size.
  void setRectangle(const Vector<3, double>& position, const Vector<3, double>& size);

 private:
  void readQuad(const QxElement& element, SceneFileReader* reader) override;
};

}  // namespace vemo
