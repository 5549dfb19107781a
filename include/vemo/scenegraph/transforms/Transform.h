#pragma once

#include <vemo/scenegraph/Node.h>

namespace lum {

/// How a drawable, with all that it owns, is moved, mirrored or repeated. What
/// it owns may have transforms of its own, which act first. Clipping planes cut
/// what comes out of it. A transform with values that are not finite changes
/// nothing. Through repeats within repeats nothing is shown more than 10,000
/// times.
class VEMO_SCENEGRAPH_EXPORT Transform : public Node {
 public:
  using Node::Node;

 protected:
  ~Transform() override = default;
};

/// Scaling from the origin of coordinates, then rotation about an axis through
/// the rotation origin, then translation. Scales of 0 in all three directions
/// are none: the drawable keeps its size. A scale of 0 in one or two directions
/// leaves nothing to be seen; negative scales mirror. An axis of length 0 does
/// not rotate.
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
/// the simple transform; the first stands where it is without a transform. It
/// is shown once for counts of 1 and less, and when the simple transform does
/// not move anything; of more than 10,000 only the first 10,000 are shown.
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
/// d = 0. The normal (a, b, c) may have any length; for one of length 0 there
/// is no mirror image.
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
