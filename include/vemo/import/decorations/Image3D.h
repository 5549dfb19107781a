#pragma once

#include <vemo/import/decorations/Image.h>

#include <string>

namespace vemo {

/// A picture in the model, oriented by its edges.
class VEMO_IMPORT_EXPORT Image3D : public Image {
 public:
  static inline const std::string XML_ENTITY = "image3d";
  struct Quad {
    Vector<3, double> origin{0.0, 0.0, 0.0};
    Vector<3, double> xAxis{1.0, 0.0, 0.0};
    Vector<3, double> yAxis{0.0, 1.0, 0.0};
  };
  static const KeyTable<Quad> KEYS;

  /// At the origin of the model, one unit wide along x and one high along y.
  explicit Image3D(std::string name);
  ~Image3D() override;

  using Image::setQuad;

 private:
  void readQuad(const QxElement& element, SceneFileReader* reader) override;
};

}  // namespace vemo
