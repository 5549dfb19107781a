#pragma once

#include "scenegraph/Node.h"

namespace lum {

/// How a drawable, with all that it owns, is moved, mirrored or repeated.
class VEMO_SCENEGRAPH_EXPORT Transform : public Node {
 public:
  using Node::Node;

 protected:
  ~Transform() override = default;
};

/// Rotation about an axis through an origin, scaling and translation.
class VEMO_SCENEGRAPH_EXPORT SimpleTransform : public Transform {
  using Vector3 = Vector<3, double>;
  LUM_NODE(SimpleTransform, Transform)
  /// In radians, counter-clockwise seen against the axis.
  LUM_VALUE(double, RotationAngle, _rotationAngle, 0.0)
  LUM_VALUE(Vector3, RotationAxis, _rotationAxis, {0.0, 0.0, 1.0})
  LUM_VALUE(Vector3, RotationOrigin, _rotationOrigin, {})
  LUM_VALUE(Vector3, Scale, _scale, {1.0, 1.0, 1.0})
  LUM_VALUE(Vector3, Translation, _translation, {})

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("rotationAngle", _rotationAngle);
    fields.add("rotationAxis", _rotationAxis);
    fields.add("rotationOrigin", _rotationOrigin);
    fields.add("scale", _scale);
    fields.add("translation", _translation);
  }
};

/// The drawable shown a number of times, each moved against the one before by
/// the simple transform.
class VEMO_SCENEGRAPH_EXPORT PeriodicRepeatTransform final : public SimpleTransform {
  LUM_NODE(PeriodicRepeatTransform, SimpleTransform)
  LUM_VALUE(std::int32_t, NumRepeats, _numRepeats, 1)

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("numRepeats", _numRepeats);
  }
};

/// The drawable together with its mirror image in the plane a x + b y + c z +
/// d = 0.
class VEMO_SCENEGRAPH_EXPORT SymmetricTransform final : public Transform {
  using Coefficients = Vector<4, double>;
  LUM_NODE(SymmetricTransform, Transform)
  LUM_VALUE(Coefficients, Plane, _plane, {0.0, 0.0, 1.0, 0.0})

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("plane", _plane);
  }
};

}  // namespace lum
