#include "vemoview/import/reading/HeldFindings.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/items/ReflectTransform.h>
#include <vemo/scenegraph/transforms/SymmetricTransform.h>

namespace vemo {

namespace {

constexpr const char* NORMAL_X = "planeEqnCoeffA";
constexpr const char* NORMAL_Y = "planeEqnCoeffB";
constexpr const char* NORMAL_Z = "planeEqnCoeffC";

}  // namespace

const KeyTable<ReflectTransform> ReflectTransform::KEYS(
    {
        key::always<&ReflectTransform::_plane, 0>(NORMAL_X,
                                                  "a; the normal (a, b, c) is normalised, d is not changed"),
        key::always<&ReflectTransform::_plane, 1>(NORMAL_Y, "b"),
        key::always<&ReflectTransform::_plane, 2>(NORMAL_Z, "c"),
        key::always<&ReflectTransform::_plane, 3>("planeEqnCoeffD", "d"),
        key::always<&ReflectTransform::_flip>("flip", "kept").withoutEffect(),
    },
    OnBadValue::FAIL, VERSION);

ReflectTransform::~ReflectTransform() = default;

void ReflectTransform::read(const QxElement& element, SceneFileReader* reader) {
  HeldFindings held(reader, {NORMAL_X, NORMAL_Y, NORMAL_Z});
  KEYS.readElement(*this, element, reader);
  const auto normal = normalized(Vector<3, double>{_plane[0], _plane[1], _plane[2]});
  if (normal == Vector<3, double>{} && reader != nullptr) {
    reader->report(FindingCode::TRANSFORM_UNUSABLE,
                   held.describe({NORMAL_X, NORMAL_Y, NORMAL_Z}, "nothing is mirrored",
                                 "The mirror has no normal: nothing is mirrored"));
  }
  held.release();
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
