#include "geometry/Connectivity.h"
#include "geometry/Normals.h"
#include "vemoview/import/geometry/GeometryDrawableBuilder.h"
#include "vemoview/import/geometry/PolyDataReader.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/QxElement.h>
#include <vemo/import/items/GeometryItem.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/drawables/GeometryDrawables.h>

#include <vtkActor.h>
#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkFloatArray.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkType.h>

#include <algorithm>
#include <span>
#include <utility>

namespace vemo {

using geometry::CellKind;

namespace {

std::string textOf(const QxElement& element, const std::string& attribute) {
  const std::string* const text = element.findAttribute(attribute);
  return text != nullptr ? *text : std::string();
}

void readVectorIfPresent(std::unique_ptr<Vector<3, double>>& target, const QxElement& element,
                         const std::string& name) {
  Vector<3, double> vector;
  if (element.getVector3(name, vector)) {
    target = std::make_unique<Vector<3, double>>(vector);
  }
}

void logArrays(const char* question, vtkDataSetAttributes& data) {
  VEMO_LOG_INFO("*********** How many " << question << " data arrays? " << data.GetNumberOfArrays());
  for (int i = 0; i < data.GetNumberOfArrays(); ++i) {
    VEMO_LOG_INFO(data.GetAbstractArray(i)->GetNumberOfTuples() << " tuples");
  }
}

}  // namespace

GeometryItem::GeometryItem(const std::string& name)
    : GraphicsItem(name), _polydata(vtkSmartPointer<vtkPolyData>::New()) {}
GeometryItem::~GeometryItem() = default;

int GeometryItem::countItemsInList(Array_t<int> list) {
  return geometry::countCells(std::span(list.data, static_cast<std::size_t>(list.count)));
}

void GeometryItem::setGeometry(vtkPolyData* polyData, vtkPolyDataMapper* mapper, vtkProperty* property) {
  _polydata = polyData;
  _mapper = mapper;
  if (property != nullptr) {
    _property = property;
  }
}

vtkPolyData* GeometryItem::getGeometry() const {
  return _polydata;
}

void GeometryItem::setLineWidth(float width) {
  // The limits are those of vtkProperty.
  _lineWidth = std::clamp(width, 0.0F, VTK_FLOAT_MAX);
  if (_property) {
    _property->SetLineWidth(_lineWidth);
  }
}

float GeometryItem::getLineWidth() const {
  return _property ? _property->GetLineWidth() : _lineWidth;
}

void GeometryItem::setLighting(double ambient, double diffuse, double specular, double specularPower) {
  _ambient = ambient;
  _diffuse = diffuse;
  _specular = specular;
  _specularPower = specularPower;
}

void GeometryItem::setPointScaleScalarName(std::string name) {
  _pointScaleScalarName = std::move(name);
}

void GeometryItem::setPointScaleScalarRange(const Vector<3, double>& range) {
  _pointScaleScalarRange = std::make_unique<Vector<3, double>>(range);
}

void GeometryItem::setPointScaleScalarMapRange(const Vector<3, double>& range) {
  _pointScaleScalarMapTo = std::make_unique<Vector<3, double>>(range);
}

bool GeometryItem::hasLighting() const {
  return _ambient != 0.0 || _diffuse != 0.0 || _specular != 0.0;
}

bool GeometryItem::hasPointScale() const {
  return _pointScaleMode != 0 || !_pointScaleScalarName.empty() || _pointScaleScalarRange ||
         _pointScaleScalarMapTo;
}

void GeometryItem::read(const QxElement& element, SceneFileReader* reader) {
  VEMO_REQUIRE(reader, "SceneFileReadable can't be NULL for this object");
  checkVersion(element, version());
  GraphicsItem::read(element, reader);
  readImpl(element, reader);
}

void GeometryItem::readImpl(const QxElement& element, SceneFileReader* reader) {
  readSettings(element);
  readPointSettings(element);

  PolyDataReader data(*_polydata, *reader, *reader);
  data.readPoints(textOf(element, XML_POINTS));
  readCells(element, data);
  readArrays(element, data);

  _geometryType = determineType();
  if (_geometryType == SURFACE) {
    computeNormals();
  }
}

void GeometryItem::readSettings(const QxElement& element) {
  _lineColor = element.getColor(XML_LINE_COLOR);
  _faceColor = element.getColor(XML_FACE_COLOR);
  setLineWidth(static_cast<float>(element.getDouble(XML_LINE_WIDTH)));
  _showEdges = element.getBool(XML_SHOW_EDGES);
  _showFaces = element.getBool(XML_SHOW_FACES);
  _smoothShading = element.getBool(XML_SMOOTH_SHADING);
  _contour = element.getBool(XML_CONTOUR);
  setLighting(element.getDouble(XML_AMBIENT), element.getDouble(XML_DIFFUSE), element.getDouble(XML_SPECULAR),
              element.getDouble(XML_SPECULAR_POWER));
  _ignoreClip = element.getBool(XML_IGNORE_CLIP);
}

void GeometryItem::readPointSettings(const QxElement& element) {
  if (element.findAttribute(XML_POINT_SIZE) != nullptr) {
    _pointSize = element.getDouble(XML_POINT_SIZE);
  }
  _pointScaleMode = element.getInt(XML_POINT_SCALE_MODE, _pointScaleMode);
  _pointScalePixelSize = element.getInt(XML_POINT_SCALE_PIXEL_SIZE, _pointScalePixelSize);
  if (const std::string* name = element.findAttribute(XML_POINT_SCALE_SCALAR_NAME)) {
    _pointScaleScalarName = *name;
  }
  readVectorIfPresent(_pointScaleScalarRange, element, XML_POINT_SCALE_SCALAR_RANGE);
  readVectorIfPresent(_pointScaleScalarMapTo, element, XML_POINT_SCALE_SCALAR_MAP_TO);
}

void GeometryItem::readCells(const QxElement& element, PolyDataReader& reader) {
  const std::pair<const std::string&, CellKind> lists[] = {{XML_VERTS, CellKind::VERTS},
                                                           {XML_LINES, CellKind::LINES},
                                                           {XML_STRIPS, CellKind::STRIPS},
                                                           {XML_POLYS, CellKind::POLYS}};
  for (const auto& [attribute, kind] : lists) {
    if (const std::string* entry = element.findAttribute(attribute)) {
      reader.readCells(kind, *entry);
    }
  }
}

void GeometryItem::readArrays(const QxElement& element, PolyDataReader& reader) {
  VEMO_LOG_INFO("GeometryItem::read: " << element.getChildren().size() << " children detected");
  for (const auto& child : element.getChildren()) {
    if (child->getName() != XML_ARRAY) {
      continue;
    }
    const auto read = child->getBool(XML_ARRAY_VERTEX_DATA) ? &PolyDataReader::readVertexArray
                                                            : &PolyDataReader::readFaceArray;
    (reader.*read)(textOf(*child, XML_ARRAY_NAME), child->getInt(XML_ARRAY_DIM),
                   textOf(*child, XML_ARRAY_DATA));
  }
}

GeometryItem::GeometryType GeometryItem::determineType() const {
  if (_polydata->GetNumberOfPolys() > 0 || _polydata->GetNumberOfStrips() > 0) {
    return SURFACE;
  }
  return _polydata->GetNumberOfLines() > 0 ? LINES : POINTS;
}

void GeometryItem::computeNormals() {
  if (_smoothShading) {
    _polydata->GetPointData()->SetNormals(geometry::pointNormals(*_polydata));
  } else {
    _polydata->GetCellData()->SetNormals(geometry::cellNormals(*_polydata));
  }
}

void GeometryItem::addToCollection(SharedBySiblings& /*shared*/, lum::DrawableCollection& collection,
                                   int level, const std::string& parentName) const {
  VEMO_REQUIRE(_polydata, "must be not NULL");
  auto& ownCollection = collection.findOrCreate<lum::DrawableCollection>(getName());
  logContents(level);
  switch (_geometryType) {
    case POINTS:
      addDrawable<lum::PointSphereDrawable>(ownCollection, parentName);
      break;
    case LINES:
      VEMO_REQUIRE(_polydata->GetLines()->GetNumberOfCells() > 0, "must be greater than zero");
      addDrawable<lum::PolyLineDrawable>(ownCollection, parentName);
      break;
    case SURFACE:
      addDrawable<lum::SurfaceDrawable>(ownCollection, parentName);
      break;
    default:
      VEMO_LOG_ERROR("Unrecognized geometry, exiting");
  }
}

template <class T>
void GeometryItem::addDrawable(lum::DrawableCollection& collection, const std::string& parentName) const {
  // Items of one name share a drawable, but no item shows or hides another.
  T* const shared = collection.find<T>();
  const bool isAtOdds = shared != nullptr && shared->template find<lum::PolyDataNode>() != nullptr &&
                        shared->getBaseAttributes().getVisibility() == hasHiddenItems();
  auto& drawable = isAtOdds ? collection.findOrCreate<T>(hasHiddenItems() ? "Hidden" : "Shown")
                            : collection.findOrCreate<T>();
  GeometryDrawableBuilder(*this, drawable).build(parentName);
  addVisibilityAttrib(drawable);
}

void GeometryItem::logContents(int level) const {
  VEMO_LOG_INFO("***** GeometryItem::addToCollection, level " << level << " *****");
  VEMO_LOG_INFO("*********** How many cells in polys? " << _polydata->GetNumberOfPolys());
  logArrays("point", *_polydata->GetPointData());
  logArrays("cell", *_polydata->GetCellData());
  VEMO_LOG_INFO("*********** Has lines? " << (_polydata->GetNumberOfLines() > 0));
  VEMO_LOG_INFO("*********** Has point data? " << (_polydata->GetPointData()->GetNumberOfArrays() > 0));
}

}  // namespace vemo
