#pragma once

#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/attributes/Attributes.h>
#include <vemo/scenegraph/transforms/Transform.h>

namespace lum {

/// What every drawable has: whether it is visible, whether clipping planes cut
/// it, and its transform. All of it applies to what the drawable owns too.
class VEMO_SCENEGRAPH_EXPORT BaseAttributes final : public Attributes {
  LUM_NODE(BaseAttributes, Attributes)
  LUM_FIELD(bool, _visibility, true)
  LUM_VALUE(bool, ClipPlanesEnabled, _clipPlanesEnabled, true)
  LUM_FIELD(Owned<Transform>, _transform)

 public:
  bool getVisibility() const { return _visibility; }
  /// If `recursive`, what the drawable owns gets the same value of its own.
  void setVisibility(bool visibility, bool recursive) {
    changeAll<BaseAttributes>(recursive,
                              [=](BaseAttributes& each) { each.assign(each._visibility, visibility); });
  }

  /// Null when the drawable is not transformed.
  Transform* getTransform() const { return _transform.get(); }
  /// Throws InternalError for a transform that is owned already.
  void setTransform(Transform* transform) {
    VEMO_REQUIRE(_transform.put(*this, transform), "The transform belongs to other attributes");
  }
};

}  // namespace lum
