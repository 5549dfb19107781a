#include <vemo/base/InternalError.h>
#include <vemo/import/QxElement.h>
#include <vemo/import/items/GeometryTransform.h>

#include <numbers>

namespace vemo {

namespace {

/// The format counts angles in quarter turns.
constexpr double RADIANS_PER_UNIT = std::numbers::pi / 2.0;

Vector<3, double> vectorOrZero(const QxElement& element, const std::string& name) {
  Vector<3, double> vector;
  element.getVector3(name, vector);
  return vector;
}

}  // namespace

GeometryTransform::~GeometryTransform() = default;

void GeometryTransform::read(const QxElement& element, SceneFileReader* /*reader*/) {
  checkVersion(element);
  setTransform(element.getDouble(XML_ATTRIB_ROTATION_ANGLE), vectorOrZero(element, XML_ROTATION_AXIS),
               vectorOrZero(element, XML_ROTATION_ORIGIN), vectorOrZero(element, XML_TRANSLATION),
               vectorOrZero(element, XML_SCALE));
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
