#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// Whether the edges of a surface's cells are drawn, and in which colour (red,
/// green, blue in 0..1).
class VEMO_SCENEGRAPH_EXPORT MeshAttributes final : public Attributes {
  LUM_NODE(MeshAttributes, Attributes)
  LUM_FIELD(bool, _meshVisible, false)
  LUM_VALUE(Vector3, MeshColor, _meshColor)
  /// 0 is invisible, 1 opaque. Applies to the contour, too.
  LUM_VALUE(double, MeshOpacity, _meshOpacity, 1.0)

 public:
  bool getMeshVisible() const { return _meshVisible; }
  /// If `recursive`, what the drawable owns gets the same value.
  void setMeshVisible(bool visible, bool recursive) {
    changeAll<MeshAttributes>(recursive,
                              [=](MeshAttributes& each) { each.assign(each._meshVisible, visible); });
  }
};

}  // namespace lum
