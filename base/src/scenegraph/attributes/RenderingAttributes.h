#pragma once

#include "scenegraph/attributes/Attributes.h"

namespace lum {

/// Whether the faces of a surface are drawn.
class VEMO_SCENEGRAPH_EXPORT SurfaceAttributes final : public Attributes {
  LUM_NODE(SurfaceAttributes, Attributes)
  LUM_VALUE(bool, Shaded, _shaded, true)

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("shaded", _shaded);
  }
};

/// Whether the edges of a surface's cells are drawn, and in which colour (red,
/// green, blue in 0..1).
class VEMO_SCENEGRAPH_EXPORT MeshAttributes final : public Attributes {
  using Color = Vector<3, double>;
  LUM_NODE(MeshAttributes, Attributes)
  LUM_VALUE(Color, MeshColor, _meshColor, {})

 public:
  bool getMeshVisible() const { return _meshVisible; }
  /// If `recursive`, what the drawable owns gets the same value.
  void setMeshVisible(bool visible, bool recursive) {
    changeAll<MeshAttributes>(recursive,
                              [=](MeshAttributes& each) { each.assign(each._meshVisible, visible); });
  }

  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("meshVisible", _meshVisible);
    fields.add("meshColor", _meshColor);
  }

 private:
  bool _meshVisible = false;
};

/// The width of lines, and of a surface's edges, in pixels.
class VEMO_SCENEGRAPH_EXPORT LineAttributes final : public Attributes {
  LUM_NODE(LineAttributes, Attributes)
  LUM_VALUE(double, LineWidth, _lineWidth, 1.0)

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("lineWidth", _lineWidth);
  }
};

/// The size of points in pixels.
class VEMO_SCENEGRAPH_EXPORT PointAttributes final : public Attributes {
  LUM_NODE(PointAttributes, Attributes)
  LUM_VALUE(float, Size, _size, 1.0F)

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("size", _size);
  }
};

/// The size of points that are drawn as spheres, in pixels.
class VEMO_SCENEGRAPH_EXPORT PointSizeAttributes final : public Attributes {
  LUM_NODE(PointSizeAttributes, Attributes)
  LUM_VALUE(double, PointSize, _pointSize, 1.0)

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("pointSize", _pointSize);
  }
};

}  // namespace lum
