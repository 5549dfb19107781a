#pragma once

#include "vemoview/import/Image.h"

#include <string>

/// A picture that stands in the model.
class VEMO_IMPORT_EXPORT Image3D : public Image {
 public:
  static inline const std::string XML_ENTITY = "image3d";

  using Image::Image;
  ~Image3D() override;
};
