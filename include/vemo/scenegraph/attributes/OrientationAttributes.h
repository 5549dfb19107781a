#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// Which way a drawable without points of its own faces: its z and its y axis
/// in model coordinates.
class VEMO_SCENEGRAPH_EXPORT OrientationAttributes final : public Attributes {
  LUM_NODE(OrientationAttributes, Attributes)
  LUM_VALUE(Vector3, ForwardVector, _forwardVector, {0.0, 0.0, 1.0})
  LUM_VALUE(Vector3, UpVector, _upVector, {0.0, 1.0, 0.0})
};

}  // namespace lum
