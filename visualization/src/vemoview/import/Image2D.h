#pragma once

#include "vemoview/import/Image.h"

#include <string>

/// A picture in the plane of the window.
class VEMO_IMPORT_EXPORT Image2D : public Image {
 public:
  static inline const std::string XML_ENTITY = "image2d";

  using Image::Image;
  ~Image2D() override;
};
