#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

LUM_ENUM(ProjectionMode, (PERSPECTIVE, "perspective"), (PARALLEL, "parallel"))

/// The camera of a canvas. As long as all values are the defaults, the
/// parallel scale included, renderers show the whole scene: to look from the
/// default position, set the scale, in perspective too.
class VEMO_SCENEGRAPH_EXPORT CameraAttributes final : public Attributes {
 public:
  using ProjectionMode = lum::ProjectionMode;

  LUM_NODE(CameraAttributes, Attributes)
  LUM_VALUE(Vector3, Position, _position, {0.0, 0.0, 1.0})
  LUM_VALUE(Vector3, FocalPoint, _focalPoint)
  LUM_VALUE(Vector3, ViewUp, _viewUp, {0.0, 1.0, 0.0})
  LUM_ENUMERATION(ProjectionMode, ProjectionMode, _projectionMode, ProjectionMode::PERSPECTIVE)
  /// Half the height of what is visible in parallel projection, in model units;
  /// empty until it is set.
  LUM_VALUE(std::optional<double>, ParallelScale, _parallelScale)
};

}  // namespace lum
