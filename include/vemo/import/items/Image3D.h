#pragma once

#include <vemo/import/items/Image.h>

#include <string>

namespace vemo {

/// A picture that stands in the model, turned as its edges say.
class VEMO_IMPORT_EXPORT Image3D : public Image {
 public:
  static inline const std::string XML_ENTITY = "image3d";

  /// In the model, at its origin, one unit of x wide and one of y high.
  explicit Image3D(std::string name);
  ~Image3D() override;

  using Image::setPlace;

 private:
  static inline const std::string XML_ORIGIN = "origin";
  static inline const std::string XML_X_AXIS = "xaxis";
  static inline const std::string XML_Y_AXIS = "yaxis";

  void readPlace(const OptionalValues& values) override;
};

}  // namespace vemo
