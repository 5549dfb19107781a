#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// From where a canvas is looked at.
class VEMO_SCENEGRAPH_EXPORT CameraAttributes final : public Attributes {
  using Vector3 = Vector<3, double>;
  using Scale = std::optional<double>;

 public:
  enum class ProjectionMode : std::int32_t { PERSPECTIVE = 0, PARALLEL = 1 };

  LUM_NODE(CameraAttributes, Attributes)
  LUM_VALUE(Vector3, Position, _position, {0.0, 0.0, 1.0})
  LUM_VALUE(Vector3, FocalPoint, _focalPoint, {})
  LUM_VALUE(Vector3, ViewUp, _viewUp, {0.0, 1.0, 0.0})
  LUM_ENUMERATION(ProjectionMode, ProjectionMode, _projectionMode, ProjectionMode::PERSPECTIVE)
  /// Half the height of what is seen in parallel projection, in model units;
  /// nothing until it is set.
  LUM_VALUE(Scale, ParallelScale, _parallelScale, {})

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("position", _position);
    fields.add("focalPoint", _focalPoint);
    fields.add("viewUp", _viewUp);
    fields.addEnumeration("projectionMode", _projectionMode, ProjectionMode::PARALLEL);
    fields.add("parallelScale", _parallelScale);
  }
};

}  // namespace lum
