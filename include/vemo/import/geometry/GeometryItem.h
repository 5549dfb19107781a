#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/archive/Array_t.h>
#include <vemo/import/geometry/GeometrySettings.h>
#include <vemo/import/items/GraphicsItem.h>
#include <vemo/import/xml/Color.h>

#include <vtkSmartPointer.h>

#include <memory>
#include <string>
#include <vector>

class vtkActor;
class vtkPolyData;
class vtkPolyDataMapper;
class vtkProperty;
namespace lum {
class GeometryDrawable;
}

namespace vemo {

class ClippingPlane;
class Colormap;
class PolyDataReader;
class SharedPolyData;
class ValueReader;
struct GeometryEntries;
struct PartsDrawn;

/// A piece of geometry: points, cells, arrays over both, and drawing settings.
class VEMO_IMPORT_EXPORT GeometryItem : public GraphicsItem {
 public:
  /// Determined by the highest dimension of its cells.
  enum GeometryType { POINTS = 0, LINES = 1, SURFACE = 2, UNDETERMINED = 3 };

  static inline const std::string XML_ENTITY = "geometry";

  explicit GeometryItem(const std::string& name);
  ~GeometryItem() override;

  /// Throws InternalError without a reader. Settings that the element does not
  /// state become false or 0; only those of points and their scaling are kept.
  void read(const QxElement& element, SceneFileReader* reader) override;

  /// Adds a collection of the item's name, and in it one drawable: of points,
  /// lines or surfaces, depending on the cells. Geometry and arrays are
  /// shared with the scene graph.
  /// @param parentName becomes the qualified name of the poly data node
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

  /// The number of cells in a connectivity list: a sequence of cells, each
  /// written as its number of points and their indices. Throws InternalError
  /// when the last cell does not end where the list does.
  static int countItemsInList(Array_t<int> list);

  /// The geometry, and the objects that draw it directly with VTK. The mapper may
  /// be null; without a property the item keeps its own. The cells of the
  /// geometry determine its type.
  void setGeometry(vtkPolyData* polyData, vtkPolyDataMapper* mapper, vtkProperty* property);
  /// Items that are read from the same entries may have the same one.
  vtkPolyData* getGeometry() const;

  // The following functions draw the item with VTK's actors, without a scene
  // graph. They need VTK's OpenGL module. Opacities are multiplied by the item's
  // visibility.

  /// The actor of the item's geometry, mapper and property; created by the first
  /// call, updated by each.
  vtkActor* getActor();
  /// The mapper that was set, or else the item's own.
  vtkPolyDataMapper* getMapper();
  vtkProperty* getProperty() const;

  /// Interpolates data between points, not their colours; the range is that of
  /// the lookup table.
  void setRenderingFlags(vtkPolyDataMapper* mapper);
  /// Colours by the cell array of that name, or else by the point array; without
  /// either, not by data.
  void setScalarArray(vtkPolyDataMapper* mapper, const std::string& name);
  /// The colours for the data; null turns colouring by data off.
  void setScalars(vtkPolyDataMapper* mapper, const Colormap* colormap);
  /// Replaces the mapper's planes; an item that ignores clipping gets none.
  void setClippingPlanes(vtkPolyDataMapper* mapper, const std::vector<ClippingPlane*>& planes);
  /// Unlit, in the line colour.
  /// @param asEdges draws the edges of polygons instead of their faces
  void setLineRenderingPropeties(bool asEdges);
  /// Lit, in the face colour, edges in the line colour when they are shown.
  void setPolygonRenderingProperties();
  /// One of the two, depending on the item's geometry. Throws InternalError for
  /// points.
  void setLineAndPolygonRenderingProperties();
  /// The opacity is also multiplied by that of the item's colour. Throws
  /// InternalError for an item that was never read.
  void setActorOpacity(double opacity);
  /// The same for points, which are drawn as small spheres.
  void setPointSpriteOpacity(double opacity);

  void setLineColor(Color color) { _settings.lineColor = color; }
  Color getLineColor() const { return _settings.lineColor; }
  void setFaceColor(Color color) { _settings.faceColor = color; }
  Color getFaceColor() const { return _settings.faceColor; }
  /// The line width of the property, if there is one.
  void setLineWidth(float width);
  float getLineWidth() const;
  void showEdges(bool show) { _settings.showEdges = show; }
  bool getEdgesVisibility() const { return _settings.showEdges; }
  void showFaces(bool show) { _settings.showFaces = show; }
  void setSmoothShading(bool smooth) { _settings.smoothShading = smooth; }
  void setContour(bool contour) { _settings.contour = contour; }
  void setIgnoreClip(bool ignore) { _settings.ignoreClip = ignore; }
  void setLighting(double ambient, double diffuse, double specular, double specularPower);
  void setPointSize(double size) { _settings.pointSize = size; }
  double getPointSize() const { return _settings.pointSize; }
  void setPointScaleMode(int mode) { _settings.pointScaleMode = mode; }
  void setPointScalePixelSize(int size) { _settings.pointScalePixelSize = size; }
  void setPointScaleScalarName(std::string name);
  void setPointScaleScalarRange(const Vector<3, double>& range);
  void setPointScaleScalarMapRange(const Vector<3, double>& range);
  const Vector<3, double>* getPointScaleScalarRange() const { return _settings.pointScaleScalarRange.get(); }
  const Vector<3, double>* getPointScaleScalarMapRange() const {
    return _settings.pointScaleScalarMapTo.get();
  }

 protected:
  int version() const { return VERSION; }
  bool alwaysHaveVersionSaved() const { return true; }

  void readImpl(const QxElement& element, SceneFileReader* reader);

 private:
  void reportUnused(const ValueReader& values, vtkPolyData& polyData) const;
  void readGeometry(const QxElement& element, vtkPolyData& polyData, SceneFileReader& reader);
  static void reportTypeChange(const GeometryEntries& entries, const PolyDataReader& data, GeometryType drawn,
                               SceneFileReader& reader);
  static GeometryType outlineGeometry(const QxElement& element, vtkPolyData& polyData,
                                      SceneFileReader& reader);
  void reportSettingsOutOfRange(const QxElement& element, SceneFileReader& reader) const;
  static GeometryType typeOf(bool hasFaces, bool hasLines);
  static GeometryType determineType(vtkPolyData& polyData);
  void computeNormals(vtkPolyData& polyData, SceneFileReader& reader) const;

  template <class T>
  void addTo(lum::DrawableCollection& collection, vtkPolyData& polyData, bool isHidden,
             const std::string& parentName, SharedBySiblings& shared) const;
  bool hasSettingsOfOthers(const lum::GeometryDrawable& drawable, const PartsDrawn& parts) const;
  void logContents(vtkPolyData& polyData, int level) const;

  GeometrySettings _settings;
  int _geometryType = UNDETERMINED;
  /// Those over the points, with findings.
  std::vector<std::string> _arraysLeftOut;
  /// Created when drawing needs it: scenes may hold a great many items. From then
  /// on the line width is the property's.
  mutable vtkSmartPointer<vtkProperty> _property;
  vtkSmartPointer<vtkPolyDataMapper> _mapper;
  vtkSmartPointer<vtkActor> _actor;
  /// Null after a host has set none.
  std::shared_ptr<SharedPolyData> _polydata;
};

}  // namespace vemo
