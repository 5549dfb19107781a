#pragma once

#include <vemo/scenegraph/transforms/Transform.h>

namespace lum {

/// Scaling from the origin of coordinates, then rotation about an axis through
/// the rotation origin, then translation. Scales of 0 in all three directions
/// are ignored: the drawable keeps its size. A scale of 0 in one or two
/// directions leaves nothing visible; negative scales mirror. An axis of length
/// 0 does not rotate.
class VEMO_SCENEGRAPH_EXPORT SimpleTransform : public Transform {
  LUM_NODE(SimpleTransform, Transform)
  /// In radians, counter-clockwise seen against the axis.
  LUM_VALUE(double, RotationAngle, _rotationAngle, 0.0)
  LUM_VALUE(Vector3, RotationAxis, _rotationAxis, {0.0, 0.0, 1.0})
  LUM_VALUE(Vector3, RotationOrigin, _rotationOrigin)
  LUM_VALUE(Vector3, Scale, _scale, {1.0, 1.0, 1.0})
  LUM_VALUE(Vector3, Translation, _translation)
};

}  // namespace lum
