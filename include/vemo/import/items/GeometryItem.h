#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/Array_t.h>
#include <vemo/import/Color.h>
#include <vemo/import/GraphicsItem.h>

#include <vtkSmartPointer.h>

#include <memory>
#include <string>
#include <vector>

class vtkActor;
class vtkPolyData;
class vtkPolyDataMapper;
class vtkProperty;

namespace vemo {

class ClippingPlane;
class Colormap;
class PolyDataReader;

/// A piece of geometry: points, cells on them, arrays over both, and how all
/// this is drawn.
class VEMO_IMPORT_EXPORT GeometryItem : public GraphicsItem {
 public:
  static inline const std::string XML_ENTITY = "geometry";

  explicit GeometryItem(const std::string& name);
  ~GeometryItem() override;

  /// Needs a reader, and throws InternalError without one. Settings that the
  /// element does not state are false or 0, whatever the item had before; only
  /// those of points and of their scaling stay.
  void read(const QxElement& element, SceneFileReader* reader) override;

  /// Adds a collection of the item's name, and in it one drawable: of points,
  /// lines or surfaces, by what the geometry has. Geometry and arrays are
  /// shared with the scene graph.
  /// @param parentName becomes the qualified name of the poly data node
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

  /// The number of cells in a connectivity list: a sequence of cells, each
  /// written as its number of points and their indices. Throws InternalError
  /// when the last cell does not end where the list does.
  static int countItemsInList(Array_t<int> list);

  /// The geometry, and what draws it directly with VTK. The mapper may be null;
  /// without a property the item keeps its own.
  void setGeometry(vtkPolyData* polyData, vtkPolyDataMapper* mapper, vtkProperty* property);
  vtkPolyData* getGeometry() const;

  // What follows draws the item with VTK's actors, in a host that shows it
  // without a scene graph; VTK's OpenGL module must be there. Opacities are
  // multiplied by the item's visibility.

  /// The actor of the item's geometry, mapper and property; made at the first
  /// request, brought up to date at each.
  vtkActor* getActor();
  /// The mapper that was set, or else one of the item's own.
  vtkPolyDataMapper* getMapper();
  vtkProperty* getProperty() const;

  /// Data are blended between points, and not their colours; the range is that
  /// of the colours.
  void setRenderingFlags(vtkPolyDataMapper* mapper);
  /// Colours by the array over the cells, or else over the points; by none when
  /// there is none of that name.
  void setScalarArray(vtkPolyDataMapper* mapper, const std::string& name);
  /// The colours for the data; null turns colouring by data off.
  void setScalars(vtkPolyDataMapper* mapper, const Colormap* colormap);
  /// In place of those that the mapper has; none for an item that ignores them.
  void setClippingPlanes(vtkPolyDataMapper* mapper, const std::vector<ClippingPlane*>& planes);
  /// Unlit, in the line colour.
  /// @param asEdges draws the edges of polygons in place of their faces
  void setLineRenderingPropeties(bool asEdges);
  /// Lit, in the face colour, edges in the line colour when they are shown.
  void setPolygonRenderingProperties();
  /// One of the two, as the item's geometry needs it. Throws InternalError for
  /// points.
  void setLineAndPolygonRenderingProperties();
  /// The opacity of the item's colour is a factor, too. Throws InternalError
  /// for an item that was never read.
  void setActorOpacity(double opacity);
  /// The same for points, which are drawn as small spheres.
  void setPointSpriteOpacity(double opacity);

  void setLineColor(Color color) { _lineColor = color; }
  Color getLineColor() const { return _lineColor; }
  void setFaceColor(Color color) { _faceColor = color; }
  Color getFaceColor() const { return _faceColor; }
  /// In pixels; that of the property.
  void setLineWidth(float width);
  float getLineWidth() const;
  void showEdges(bool show) { _showEdges = show; }
  bool getEdgesVisibility() const { return _showEdges; }
  void showFaces(bool show) { _showFaces = show; }
  bool getFacesVisibility() const { return _showFaces; }
  void setSmoothShading(bool smooth) { _smoothShading = smooth; }
  void setContour(bool contour) { _contour = contour; }
  bool getContour() const { return _contour; }
  void setIgnoreClip(bool ignore) { _ignoreClip = ignore; }
  bool getIgnoreClip() const { return _ignoreClip; }
  /// Coefficients of 0 to 1, and the exponent of highlights.
  void setLighting(double ambient, double diffuse, double specular, double specularPower);
  /// Whether any coefficient is above 0. Files that state none have items that
  /// nobody could see: how these are lit is left to who draws them.
  bool hasLighting() const;
  double getAmbient() const { return _ambient; }
  double getDiffuse() const { return _diffuse; }
  double getSpecular() const { return _specular; }
  double getSpecularPower() const { return _specularPower; }
  /// In pixels.
  void setPointSize(double size) { _pointSize = size; }
  double getPointSize() const { return _pointSize; }

  // How the size of points follows data: see lum::PointScaleAttributes, which
  // points get when any of this is set.
  void setPointScaleMode(int mode) { _pointScaleMode = mode; }
  int getPointScaleMode() const { return _pointScaleMode; }
  /// Anything but 0: sizes are in pixels, and not in model units.
  void setPointScalePixelSize(int size) { _pointScalePixelSize = size; }
  int getPointScalePixelSize() const { return _pointScalePixelSize; }
  void setPointScaleScalarName(std::string name);
  const std::string& getPointScaleScalarName() const { return _pointScaleScalarName; }
  /// Both ranges run from x to y; z is kept, and not used.
  void setPointScaleScalarRange(const Vector<3, double>& range);
  void setPointScaleScalarMapRange(const Vector<3, double>& range);
  /// Null until set.
  const Vector<3, double>* getPointScaleScalarRange() const { return _pointScaleScalarRange.get(); }
  const Vector<3, double>* getPointScaleScalarMapRange() const { return _pointScaleScalarMapTo.get(); }
  bool hasPointScale() const;

 protected:
  int version() const { return VERSION; }
  bool alwaysHaveVersionSaved() const { return true; }

  void readImpl(const QxElement& element, SceneFileReader* reader);

 private:
  static inline const std::string XML_POINTS = "points";
  static inline const std::string XML_VERTS = "verts";
  static inline const std::string XML_LINES = "lines";
  static inline const std::string XML_STRIPS = "strips";
  static inline const std::string XML_POLYS = "polys";
  static inline const std::string XML_LINE_COLOR = "lineColor";
  static inline const std::string XML_FACE_COLOR = "faceColor";
  static inline const std::string XML_LINE_WIDTH = "lineWidth";
  static inline const std::string XML_SHOW_EDGES = "showEdges";
  static inline const std::string XML_SHOW_FACES = "showFaces";
  static inline const std::string XML_SMOOTH_SHADING = "smoothShading";
  static inline const std::string XML_CONTOUR = "contour";
  static inline const std::string XML_AMBIENT = "ambient";
  static inline const std::string XML_DIFFUSE = "diffuse";
  static inline const std::string XML_SPECULAR = "specular";
  static inline const std::string XML_SPECULAR_POWER = "specularPower";
  static inline const std::string XML_IGNORE_CLIP = "ignoreClip";
  static inline const std::string XML_POINT_SIZE = "pointSize";
  static inline const std::string XML_POINT_SCALE_MODE = "pointScaleMode";
  static inline const std::string XML_POINT_SCALE_PIXEL_SIZE = "pointScalePixelsSize";
  static inline const std::string XML_POINT_SCALE_SCALAR_NAME = "pointScaleScalarName";
  static inline const std::string XML_POINT_SCALE_SCALAR_RANGE = "pointScaleScalarRange";
  static inline const std::string XML_POINT_SCALE_SCALAR_MAP_TO = "pointScaleScalarMapTo";
  static inline const std::string XML_ARRAY = "array";
  static inline const std::string XML_ARRAY_DIM = "dim";
  static inline const std::string XML_ARRAY_NAME = "name";
  static inline const std::string XML_ARRAY_DATA = "data";
  static inline const std::string XML_ARRAY_VERTEX_DATA = "vertexData";

  /// Values of _geometryType.
  enum GeometryType { POINTS = 0, LINES = 1, SURFACE = 2, UNDETERMINED = 3 };

  void readSettings(const QxElement& element);
  void readPointSettings(const QxElement& element);
  void readCells(const QxElement& element, PolyDataReader& reader);
  void readArrays(const QxElement& element, PolyDataReader& reader);
  GeometryType determineType() const;
  void computeNormals();

  template <class T>
  void addDrawable(lum::DrawableCollection& collection, const std::string& parentName) const;
  void logContents(int level) const;

  int _geometryType = UNDETERMINED;
  float _lineWidth = 1.0F;
  /// Made when somebody draws with it: scenes hold a great many items. The line
  /// width is its own from then on.
  mutable vtkSmartPointer<vtkProperty> _property;
  vtkSmartPointer<vtkPolyDataMapper> _mapper;
  vtkSmartPointer<vtkActor> _actor;
  vtkSmartPointer<vtkPolyData> _polydata;
  bool _showFaces = true;
  bool _showEdges = false;
  bool _smoothShading = true;
  bool _contour = false;
  double _ambient = 0.0;
  double _diffuse = 1.0;
  double _specular = 0.0;
  double _specularPower = 1.0;
  double _pointSize = 1.0;
  int _pointScaleMode = 0;
  int _pointScalePixelSize = 1;
  std::unique_ptr<Vector<3, double>> _pointScaleScalarRange;
  std::unique_ptr<Vector<3, double>> _pointScaleScalarMapTo;
  std::string _pointScaleScalarName;
  bool _ignoreClip = false;
  Color _faceColor{255, 255, 255, 255};
  Color _lineColor{0, 0, 0, 255};
};

}  // namespace vemo
