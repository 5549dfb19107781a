#pragma once

#include <vemo/import/items/Image.h>

#include <string>

namespace vemo {

/// A picture that stands upright, as in the plane of the window.
class VEMO_IMPORT_EXPORT Image2D : public Image {
 public:
  static inline const std::string XML_ENTITY = "image2d";

  /// In the window, at its lower left corner, a fifth of it wide and high.
  explicit Image2D(std::string name);
  ~Image2D() override;

  /// The lower left corner; width and height are the first two numbers of the
  /// size.
  void setPlace(const Vector<3, double>& position, const Vector<3, double>& size);

 private:
  static inline const std::string XML_POSITION = "position";
  static inline const std::string XML_SIZE = "size";

  void readPlace(const OptionalValues& values) override;
};

}  // namespace vemo
