#include "geometry/Connectivity.h"
#include "geometry/Normals.h"
#include "vemoview/import/geometry/GeometryDrawableBuilder.h"
#include "vemoview/import/geometry/GeometryKeys.h"
#include "vemoview/import/geometry/PolyDataReader.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/QxElement.h>
#include <vemo/import/items/GeometryItem.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/attributes/LineAttributes.h>
#include <vemo/scenegraph/drawables/DrawableCollection.h>
#include <vemo/scenegraph/drawables/PointSphereDrawable.h>
#include <vemo/scenegraph/drawables/PolyLineDrawable.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>

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

namespace {

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
  return vemo::countCells(std::span(list.data, static_cast<std::size_t>(list.count)));
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
  _settings.lineWidth = std::clamp(width, 0.0F, VTK_FLOAT_MAX);
  if (_property) {
    _property->SetLineWidth(_settings.lineWidth);
  }
}

float GeometryItem::getLineWidth() const {
  return _property ? _property->GetLineWidth() : _settings.lineWidth;
}

void GeometryItem::setLighting(double ambient, double diffuse, double specular, double specularPower) {
  _settings.ambient = ambient;
  _settings.diffuse = diffuse;
  _settings.specular = specular;
  _settings.specularPower = specularPower;
}

void GeometryItem::setPointScaleScalarName(std::string name) {
  _settings.pointScaleScalarName = std::move(name);
}

void GeometryItem::setPointScaleScalarRange(const Vector<3, double>& range) {
  _settings.pointScaleScalarRange = std::make_unique<Vector<3, double>>(range);
}

void GeometryItem::setPointScaleScalarMapRange(const Vector<3, double>& range) {
  _settings.pointScaleScalarMapTo = std::make_unique<Vector<3, double>>(range);
}

void GeometryItem::read(const QxElement& element, SceneFileReader* reader) {
  VEMO_REQUIRE(reader, "SceneFileReadable can't be NULL for this object");
  ValueReader(element, reader, OnBadValue::FAIL).checkVersion(version());
  GraphicsItem::read(element, reader);
  readImpl(element, reader);
}

void GeometryItem::readImpl(const QxElement& element, SceneFileReader* reader) {
  GeometrySettings::KEYS.read(_settings, element, reader);
  setLineWidth(_settings.lineWidth);
  readGeometry(element, *reader);
  _geometryType = determineType();
  reportUnused(ValueReader(element, reader, OnBadValue::FAIL));
  if (_geometryType == SURFACE) {
    computeNormals();
  }
}

/// What the element states, but neither the scene graph nor VTK has a use for.
void GeometryItem::reportUnused(const ValueReader& values) const {
  GeometrySettings::KEYS.reportInapplicable(values, _geometryType);
  for (const auto& [key, range] : {std::pair("pointScaleScalarRange", &_settings.pointScaleScalarRange),
                                   std::pair("pointScaleScalarMapTo", &_settings.pointScaleScalarMapTo)}) {
    if (*range && (**range)[2] != 0.0) {
      values.reportWithoutEffect(key);
    }
  }
}

void GeometryItem::readGeometry(const QxElement& element, SceneFileReader& reader) {
  GeometryEntries entries;
  GeometryEntries::KEYS.read(entries, element, &reader);
  PolyDataReader data(*_polydata, reader, reader);
  reader.attempt([&] { data.readPoints(entries.points.value_or("")); });
  for (const auto& [entry, kind] :
       {std::pair(&entries.verts, CellKind::VERTS), std::pair(&entries.lines, CellKind::LINES),
        std::pair(&entries.strips, CellKind::STRIPS), std::pair(&entries.polys, CellKind::POLYS)}) {
    if (*entry) {
      reader.attempt([&, place = kind, name = **entry] { data.readCells(place, name); });
    }
  }
  VEMO_LOG_INFO("GeometryItem::read: " << element.getChildren().size() << " children detected");
  for (const auto& child : element.getChildren()) {
    if (child->getName() == GeometryArray::XML_ENTITY) {
      child->markRead();
      const ReadingContext::ItemScope scope(&reader, pathName(*child), child->getLine());
      reader.attempt([&, &element = *child] {
        GeometryArray array;
        GeometryArray::KEYS.read(array, element, &reader);
        data.readArray(array);
      });
    }
  }
}

GeometryItem::GeometryType GeometryItem::determineType() const {
  if (_polydata->GetNumberOfPolys() > 0 || _polydata->GetNumberOfStrips() > 0) {
    return SURFACE;
  }
  return _polydata->GetNumberOfLines() > 0 ? LINES : POINTS;
}

void GeometryItem::computeNormals() {
  if (_settings.smoothShading) {
    _polydata->GetPointData()->SetNormals(pointNormals(*_polydata));
  } else {
    _polydata->GetCellData()->SetNormals(cellNormals(*_polydata));
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
  GeometryDrawableBuilder(_settings, *_polydata, drawable).build(parentName);
  if (_property) {
    // A host may have changed the property.
    drawable.template getAttributes<lum::LineAttributes>().setLineWidth(_property->GetLineWidth());
  }
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
