#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// Where a drawable without points of its own is, in model coordinates.
class VEMO_SCENEGRAPH_EXPORT PositionAttributes final : public Attributes {
  LUM_NODE(PositionAttributes, Attributes)
  LUM_FIELD(Vector3, _position)

 public:
  const Vector3& getPosition() const { return _position; }
  /// If `recursive`, what the drawable owns gets the same position.
  void setPosition(const Vector3& position, bool recursive) {
    changeAll<PositionAttributes>(recursive,
                                  [&](PositionAttributes& each) { each.assign(each._position, position); });
  }
};

}  // namespace lum
