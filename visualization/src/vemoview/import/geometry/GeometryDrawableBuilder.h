#pragma once

#include <vemo/scenegraph/attributes/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/GeometryDrawables.h>

#include <string>

class vtkDataArray;

namespace vemo {

class GeometryItem;

/// Puts the geometry of an item into a drawable of the scene graph: the poly
/// data, how it is drawn, and by which array it is coloured.
class GeometryDrawableBuilder {
 public:
  /// Throws InternalError for a drawable that cannot be coloured.
  GeometryDrawableBuilder(const GeometryItem& item, lum::GeometryDrawable& drawable);

  void build(const std::string& qualifiedName);

 private:
  lum::PolyDataNode& addPolyData(const std::string& qualifiedName);
  void applyRenderingAttributes(const lum::PolyDataNode& node);
  void applySurfaceAttributes(const std::string& key);
  void applyLineColor(const std::string& key);
  void applyLighting();
  void applyPointScale();
  Vector<2, double> scaledValues() const;
  void colorByData();
  void colorBy(vtkDataArray& array, lum::DataLocation location);

  const GeometryItem& _item;
  lum::GeometryDrawable& _drawable;
  lum::ColorAttributes* _colorAttributes;
};

}  // namespace vemo
