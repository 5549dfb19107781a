#pragma once

#include <vemo/import/items/GeometryTransform.h>

#include <cstdint>
#include <string>

namespace vemo {

/// The assembly shown several times.
class VEMO_IMPORT_EXPORT RepeatTransform : public GeometryTransform {
 public:
  static inline const std::string XML_ENTITY = "repeat";
  static const KeyTable<RepeatTransform> KEYS;

  ~RepeatTransform() override;

  /// Reads only the number of repeats; 0 when the attribute is missing.
  void read(const QxElement& element, SceneFileReader* reader) override;

  int getRepeatCount() const override { return _repeatCount; }
  void apply(lum::Transform& target) const override;
  lum::Transform* makeLumTransform(lum::BaseAttributes& attributes) const override;

 private:
  std::int32_t _repeatCount = 1;
};

}  // namespace vemo
