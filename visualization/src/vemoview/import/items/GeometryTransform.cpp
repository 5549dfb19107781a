#include "vemoview/import/reading/HeldFindings.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/items/GeometryTransform.h>
#include <vemo/scenegraph/transforms/SimpleTransform.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace vemo {

namespace {

/// The format counts angles in quarter turns.
constexpr double RADIANS_PER_UNIT = std::numbers::pi / 2.0;

constexpr const char* ROTATION_ANGLE = "rotAngle";
constexpr const char* ROTATION_AXIS = "rotAxis";
constexpr const char* ROTATION_ORIGIN = "rotOrigin";
constexpr const char* TRANSLATION = "translation";
constexpr const char* SCALE_FACTORS = "scale";

}  // namespace

const KeyTable<GeometryTransform> GeometryTransform::KEYS({
    key::always<&GeometryTransform::_rotationAngle>(ROTATION_ANGLE, "in quarter turns"),
    key::always<&GeometryTransform::_rotationAxis>(ROTATION_AXIS, "the axis, of any length"),
    key::always<&GeometryTransform::_rotationOrigin>(ROTATION_ORIGIN, "a point of the axis"),
    key::always<&GeometryTransform::_translation>(TRANSLATION, "the distance it is moved"),
    key::always<&GeometryTransform::_scale>(SCALE_FACTORS, "factors along x, y and z"),
});

GeometryTransform::~GeometryTransform() = default;

void GeometryTransform::reportUnusable(HeldFindings& held, SceneFileReader& reader) {
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
        {}, ROTATION_ANGLE);
  }
  reportTooLarge(held, reader);
}

/// Of what could not be read, numbers beyond the greatest alone count as so large that nothing can be drawn.
void GeometryTransform::reportTooLarge(HeldFindings& held, SceneFileReader& reader) {
  const auto isTooLarge = [](double value) { return std::abs(value) == std::numeric_limits<double>::max(); };
  const bool isTurned = isTooLarge(_rotationAngle);
  const char* const cause = isTurned                                        ? ROTATION_ANGLE
                            : std::ranges::any_of(_scale, isTooLarge)       ? SCALE_FACTORS
                            : std::ranges::any_of(_translation, isTooLarge) ? TRANSLATION
                            : _rotationAngle != 0.0 && std::ranges::any_of(_rotationOrigin, isTooLarge)
                                ? ROTATION_ORIGIN
                                : nullptr;
  if (cause == nullptr) {
    return;
  }
  const std::string text =
      held.describe({cause}, isTurned ? "nothing is transformed" : "what it transforms is not drawn");
  _isFaultKnown = !text.empty();
  if (_isFaultKnown) {
    reader.report(FindingCode::TRANSFORM_UNUSABLE, text);
  }
}

void GeometryTransform::read(const QxElement& element, SceneFileReader* reader) {
  HeldFindings held(reader, {ROTATION_ANGLE, ROTATION_AXIS, ROTATION_ORIGIN, TRANSLATION, SCALE_FACTORS});
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
  lumSimpleTransform->setFaultKnown(_isFaultKnown);
}

lum::Transform* GeometryTransform::makeLumTransform(lum::BaseAttributes& attributes) const {
  return ensureTransform<lum::SimpleTransform>(attributes);
}

}  // namespace vemo
