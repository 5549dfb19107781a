#pragma once

#include <vemo/scenegraph/coloring/ColorAttributes.h>
#include <vemo/scenegraph/coloring/DataLocationAttributes.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/GeometryDrawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <string>

class vtkDataArray;
class vtkPolyData;

namespace vemo {

struct GeometrySettings;
class PointBounds;
class ReadingContext;

/// Adds geometry to a drawable of the scene graph: the poly data, the settings,
/// and the array that colours it.
class GeometryDrawableBuilder {
 public:
  /// Throws InternalError for a drawable that cannot be coloured.
  /// @param context receives findings; may be null
  GeometryDrawableBuilder(const GeometrySettings& settings, vtkPolyData& polyData,
                          lum::GeometryDrawable& drawable, PointBounds& pointBounds, ReadingContext* context);

  lum::PolyDataNode& build(const std::string& qualifiedName);

 private:
  Vector<3, double> findCenter() const;
  lum::PolyDataNode& addPolyData(const std::string& qualifiedName);
  void applyRenderingAttributes(const lum::PolyDataNode& node);
  void applySurfaceAttributes(const std::string& key);
  void applyLineColor(const std::string& key);
  void applyLighting();
  void applyPointScale();
  Vector<2, double> scaledValues() const;
  void colorByData();
  void colorBy(vtkDataArray& array, lum::DataLocation location);

  const GeometrySettings& _settings;
  vtkPolyData& _polyData;
  lum::GeometryDrawable& _drawable;
  PointBounds& _pointBounds;
  ReadingContext* _context;
  lum::ColorAttributes* _colorAttributes;
};

}  // namespace vemo
