#pragma once

#include <vemo/import/reading/Readable.h>
#include <vemo/import/xml/Color.h>

#include <string>

namespace lum {
class Light;
}

namespace vemo {

/// A light of the scene. It moves with the camera.
class VEMO_IMPORT_EXPORT Light : public Readable {
 public:
  static inline const std::string XML_ENTITY = "light";
  static const KeyTable<Light> KEYS;

  ~Light() override;

  /// Replaces everything: a number that the element does not state is 0.
  void read(const QxElement& element, SceneFileReader* reader) override;

  void convertTo(lum::Light& light) const;

 private:
  double _intensity = 0.5;
  /// In degrees, as seen by the viewer.
  double _azimuth = 45.0;
  double _elevation = 45.0;
  Color _color{255, 255, 255, 255};
};

}  // namespace vemo
