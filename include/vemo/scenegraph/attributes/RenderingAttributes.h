#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

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

/// How a surface answers to light: coefficients of 0 to 1, and the exponent of
/// its highlights.
class VEMO_SCENEGRAPH_EXPORT MaterialAttributes final : public Attributes {
  LUM_NODE(MaterialAttributes, Attributes)
  LUM_VALUE(double, Ambient, _ambient, 0.0)
  LUM_VALUE(double, Diffuse, _diffuse, 1.0)
  LUM_VALUE(double, Specular, _specular, 0.0)
  LUM_VALUE(double, SpecularPower, _specularPower, 1.0)

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("ambient", _ambient);
    fields.add("diffuse", _diffuse);
    fields.add("specular", _specular);
    fields.add("specularPower", _specularPower);
  }
};

/// Whether the contour of a surface is drawn, in the colour of its mesh: its
/// border, and the edges at which it bends by more than 30 degrees.
class VEMO_SCENEGRAPH_EXPORT ContourAttributes final : public Attributes {
  LUM_NODE(ContourAttributes, Attributes)
  LUM_VALUE(bool, ContourVisible, _contourVisible, false)

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("contourVisible", _contourVisible);
  }
};

/// How the size of points follows a data array.
enum class PointScaleMode : std::int32_t {
  /// All points have the same size.
  CONSTANT = 0,
  /// The scalar range runs evenly over the sizes; values outside it have the
  /// size at its end.
  LINEAR = 1,
  /// The same over the logarithm of the scalar.
  LOG10 = 2,
};

/// Points of different sizes.
class VEMO_SCENEGRAPH_EXPORT PointScaleAttributes final : public Attributes {
  using Range = Vector<2, double>;
  LUM_NODE(PointScaleAttributes, Attributes)
  LUM_ENUMERATION(PointScaleMode, ScaleMode, _scaleMode, PointScaleMode::CONSTANT)
  /// Whether sizes are in pixels, or else in model units.
  LUM_VALUE(bool, PixelSize, _pixelSize, true)
  /// The name of an array over the points.
  LUM_VALUE(std::string, ScalarName, _scalarName, {})
  LUM_VALUE(Range, ScalarRange, _scalarRange, {0.0, 1.0})
  /// The sizes at the two ends of the scalar range.
  LUM_VALUE(Range, MapToRange, _mapToRange, {1.0, 1.0})

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.addEnumeration("scaleMode", _scaleMode, PointScaleMode::LOG10);
    fields.add("pixelSize", _pixelSize);
    fields.add("scalarName", _scalarName);
    fields.add("scalarRange", _scalarRange);
    fields.add("mapToRange", _mapToRange);
  }
};

}  // namespace lum
