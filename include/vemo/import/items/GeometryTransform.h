#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/items/Transform.h>

#include <string>

namespace vemo {

class HeldFindings;

/// Rotation about an axis, scaling and translation.
class VEMO_IMPORT_EXPORT GeometryTransform : public Transform {
 public:
  static inline const std::string XML_ENTITY = "transform";
  static const KeyTable<GeometryTransform> KEYS;

  ~GeometryTransform() override;

  /// Replaces everything: what the element does not state is zero, the scale
  /// too.
  void read(const QxElement& element, SceneFileReader* reader) override;

  int getRepeatCount() const override { return 0; }
  bool isMirroring() const override { return false; }
  void apply(lum::Transform& target) const override;
  lum::Transform* makeLumTransform(lum::BaseAttributes& attributes) const override;

  /// @param angle in quarter turns
  /// @param axis is stored at unit length, or as zero
  virtual void setTransform(double angle, const Vector<3, double>& axis, const Vector<3, double>& origin,
                            const Vector<3, double>& translation, const Vector<3, double>& scale);

 private:
  void reportUnusable(HeldFindings& held, SceneFileReader& reader) const;

  Vector<3, double> _rotationAxis{0.0, 0.0, 1.0};
  Vector<3, double> _rotationOrigin{};
  double _rotationAngle = 0.0;
  Vector<3, double> _translation{};
  Vector<3, double> _scale{1.0, 1.0, 1.0};
};

}  // namespace vemo
