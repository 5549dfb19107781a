#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/items/ReflectTransform.h>
#include <vemo/scenegraph/transforms/SymmetricTransform.h>

namespace vemo {

const KeyTable<ReflectTransform> ReflectTransform::KEYS(
    {
        key::always<&ReflectTransform::_plane, 0>("planeEqnCoeffA",
                                                  "a; the normal (a, b, c) is normalised, d is not changed"),
        key::always<&ReflectTransform::_plane, 1>("planeEqnCoeffB", "b"),
        key::always<&ReflectTransform::_plane, 2>("planeEqnCoeffC", "c"),
        key::always<&ReflectTransform::_plane, 3>("planeEqnCoeffD", "d"),
        key::always<&ReflectTransform::_flip>("flip", "kept").withoutEffect(),
    },
    OnBadValue::FAIL, VERSION);

ReflectTransform::~ReflectTransform() = default;

void ReflectTransform::read(const QxElement& element, SceneFileReader* reader) {
  KEYS.readElement(*this, element, reader);
  const auto normal = normalized(Vector<3, double>{_plane[0], _plane[1], _plane[2]});
  if (normal == Vector<3, double>{} && reader != nullptr) {
    reader->report(FindingCode::TRANSFORM_UNUSABLE, "The mirror has no normal: nothing is mirrored");
  }
  // The distance is stated for a unit normal already.
  _plane = {normal[0], normal[1], normal[2], _plane[3]};
}

void ReflectTransform::apply(lum::Transform& target) const {
  auto* const lumSymmTransform = dynamic_cast<lum::SymmetricTransform*>(&target);
  VEMO_REQUIRE(lumSymmTransform, "correct type must be enforced by makeLumTransform function");
  lumSymmTransform->setPlane(_plane);
}

lum::Transform* ReflectTransform::makeLumTransform(lum::BaseAttributes& attributes) const {
  return ensureTransform<lum::SymmetricTransform>(attributes);
}

}  // namespace vemo
