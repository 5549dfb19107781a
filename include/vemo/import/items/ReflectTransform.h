#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/items/Transform.h>

#include <string>

namespace vemo {

/// The assembly together with its mirror image.
class VEMO_IMPORT_EXPORT ReflectTransform : public Transform {
 public:
  static inline const std::string XML_ENTITY = "reflect";
  static const KeyTable<ReflectTransform> KEYS;

  ~ReflectTransform() override;

  void read(const QxElement& element, SceneFileReader* reader) override;

  int getRepeatCount() const override { return 1; }
  bool isMirroring() const override { return true; }
  void apply(lum::Transform& target) const override;
  lum::Transform* makeLumTransform(lum::BaseAttributes& attributes) const override;

 private:
  /// Newer than that of other elements.
  static constexpr int VERSION = 2;

  /// Of the mirror a x + b y + c z + d = 0; (a, b, c) has unit length or is
  /// zero.
  Vector<4, double> _plane{0.0, 0.0, 1.0, 0.0};
  bool _flip = false;
};

}  // namespace vemo
