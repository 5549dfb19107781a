#pragma once

#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/attributes/Attributes.h>
#include <vemo/scenegraph/transforms/Transform.h>

namespace lum {

/// What every drawable has: whether it is seen, whether clipping planes cut
/// it, and how it is moved. All of it holds for what the drawable owns too.
class VEMO_SCENEGRAPH_EXPORT BaseAttributes final : public Attributes {
  LUM_NODE(BaseAttributes, Attributes)
  LUM_VALUE(bool, ClipPlanesEnabled, _clipPlanesEnabled, true)

 public:
  bool getVisibility() const { return _visibility; }
  /// If `recursive`, what the drawable owns gets the same value of its own.
  void setVisibility(bool visibility, bool recursive) {
    changeAll<BaseAttributes>(recursive,
                              [=](BaseAttributes& each) { each.assign(each._visibility, visibility); });
  }

  /// Null when the drawable stands where it is.
  Transform* getTransform() const { return _transform.get(); }
  /// Throws InternalError for a transform that is owned already.
  void setTransform(Transform* transform) {
    VEMO_REQUIRE(_transform.put(*this, transform), "The transform belongs to other attributes");
  }

  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("visibility", _visibility);
    fields.add("clipPlanesEnabled", _clipPlanesEnabled);
    fields.add("transform", _transform);
  }

 private:
  bool _visibility = true;
  Owned<Transform> _transform;
};

}  // namespace lum
