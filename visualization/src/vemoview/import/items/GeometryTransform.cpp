#include "vemoview/import/reading/HeldFindings.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/items/GeometryTransform.h>
#include <vemo/scenegraph/transforms/SimpleTransform.h>

#include <algorithm>
#include <numbers>

namespace vemo {

namespace {

/// The format counts angles in quarter turns.
constexpr double RADIANS_PER_UNIT = std::numbers::pi / 2.0;

constexpr const char* ROTATION_AXIS = "rotAxis";
constexpr const char* SCALE_FACTORS = "scale";

}  // namespace

const KeyTable<GeometryTransform> GeometryTransform::KEYS({
    key::always<&GeometryTransform::_rotationAngle>("rotAngle", "in quarter turns"),
    key::always<&GeometryTransform::_rotationAxis>(ROTATION_AXIS, "the axis, of any length"),
    key::always<&GeometryTransform::_rotationOrigin>("rotOrigin", "a point of the axis"),
    key::always<&GeometryTransform::_translation>("translation", "the distance it is moved"),
    key::always<&GeometryTransform::_scale>(SCALE_FACTORS, "factors along x, y and z"),
});

GeometryTransform::~GeometryTransform() = default;

void GeometryTransform::reportUnusable(HeldFindings& held, SceneFileReader& reader) const {
  const auto zeros = std::ranges::count(_scale, 0.0);
  if (zeros == 1 || zeros == 2) {
    reader.report(FindingCode::TRANSFORM_UNUSABLE,
                  held.describe({SCALE_FACTORS}, "the scaled items are invisible",
                                "The scale is zero in some directions: the scaled items are invisible"));
  }
  if (_rotationAngle != 0.0 && _rotationAxis == Vector<3, double>{}) {
    reader.report(
        FindingCode::TRANSFORM_UNUSABLE,
        held.describe({ROTATION_AXIS}, "nothing is rotated", "The rotation has no axis: nothing is rotated"),
        {}, "rotAngle");
  }
}

void GeometryTransform::read(const QxElement& element, SceneFileReader* reader) {
  HeldFindings held(reader, {SCALE_FACTORS, ROTATION_AXIS});
  KEYS.readElement(*this, element, reader);
  setTransform(_rotationAngle, _rotationAxis, _rotationOrigin, _translation, _scale);
  if (reader != nullptr) {
    reportUnusable(held, *reader);
  }
  held.release();
}

void GeometryTransform::setTransform(double angle, const Vector<3, double>& axis,
                                     const Vector<3, double>& origin, const Vector<3, double>& translation,
                                     const Vector<3, double>& scale) {
  _rotationAngle = angle;
  _rotationAxis = normalized(axis);
  _rotationOrigin = origin;
  _translation = translation;
  _scale = scale;
}

void GeometryTransform::apply(lum::Transform& target) const {
  auto* const lumSimpleTransform = dynamic_cast<lum::SimpleTransform*>(&target);
  VEMO_REQUIRE(lumSimpleTransform, "correct type must be enforced by makeLumTransform function");
  lumSimpleTransform->setRotationAngle(_rotationAngle * RADIANS_PER_UNIT);
  lumSimpleTransform->setRotationAxis(_rotationAxis);
  lumSimpleTransform->setRotationOrigin(_rotationOrigin);
  lumSimpleTransform->setScale(_scale);
  lumSimpleTransform->setTranslation(_translation);
}

lum::Transform* GeometryTransform::makeLumTransform(lum::BaseAttributes& attributes) const {
  return ensureTransform<lum::SimpleTransform>(attributes);
}

}  // namespace vemo
