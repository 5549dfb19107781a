#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

#include <optional>
#include <utility>

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

 public:
  /// Whether numbers of the position or the focal point, or of the view-up vector, could not be read, as
  /// a finding says, and count as 0: what follows from that is then not another finding. Not stored, and
  /// about the present values alone.
  bool isViewUnknown() const { return _unknownView == std::pair(_position, _focalPoint); }
  bool isViewUpUnknown() const { return _unknownViewUp == _viewUp; }
  void setViewUnknown() { _unknownView = std::pair(_position, _focalPoint); }
  void setViewUpUnknown() { _unknownViewUp = _viewUp; }

 private:
  std::optional<std::pair<Vector3, Vector3>> _unknownView;
  std::optional<Vector3> _unknownViewUp;
};

}  // namespace lum
