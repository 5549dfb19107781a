#include "geometry/Connectivity.h"
#include "geometry/data/NamedArrays.h"
#include "geometry/data/SharedPolyData.h"
#include "scenegraph/attributes/PixelLimits.h"
#include "vemoview/import/geometry/GeometryDrawableBuilder.h"
#include "vemoview/import/geometry/GeometryKeys.h"
#include "vemoview/import/geometry/PointBounds.h"
#include "vemoview/import/geometry/PolyDataReader.h"
#include "vemoview/import/geometry/SharedSettings.h"
#include "vemoview/import/items/CollectionColoring.h"
#include "vemoview/import/items/SharedCollection.h"
#include "vemoview/import/reading/HeldFindings.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/ReadingContext.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/geometry/GeometryItem.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/import/xml/QxElement.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/attributes/LineAttributes.h>
#include <vemo/scenegraph/attributes/MaterialAttributes.h>
#include <vemo/scenegraph/attributes/PointScaleAttributes.h>
#include <vemo/scenegraph/drawables/DrawableCollection.h>
#include <vemo/scenegraph/drawables/PointSphereDrawable.h>
#include <vemo/scenegraph/drawables/PolyLineDrawable.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkFloatArray.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>

#include <algorithm>
#include <fmt/format.h>
#include <memory>
#include <span>
#include <string>
#include <tuple>
#include <utility>

namespace vemo {

namespace {

/// By GeometryItem::GeometryType.
constexpr const char* TYPE_NAMES[] = {"points", "lines", "a surface"};

constexpr const char* SHOW_FACES = "showFaces";
constexpr const char* SHOW_EDGES = "showEdges";
constexpr const char* CONTOUR = "contour";
constexpr const char* LIGHTING[] = {"ambient", "diffuse", "specular", "specularPower"};

bool hasGeometry(const lum::GeometryDrawable& drawable) {
  return drawable.find<lum::PolyDataNode>() != nullptr;
}

bool isColored(const lum::GeometryDrawable& drawable, const CollectionColoring* coloring) {
  const auto* const scalars = drawable.findAttributes<lum::ScalarAttributes>();
  return scalars != nullptr && (scalars->hasColorLookupTable() != nullptr ||
                                (coloring != nullptr && coloring->isColored(*scalars)));
}

/// What colours an assembly colours the data, too.
void addData(const lum::GeometryDrawable& drawable, CollectionColoring* coloring) {
  const auto* const scalars = drawable.findAttributes<lum::ScalarAttributes>();
  if (scalars != nullptr && coloring != nullptr) {
    coloring->add(*scalars);
  }
}

/// The first T with the desired visibility or without geometry; created if
/// there is none. Items with the same name share a drawable, but must not show
/// or hide each other.
template <class T>
T& findDrawable(lum::DrawableCollection& collection, bool isHidden) {
  std::string name = T::getClassName();
  T* found = collection.find<T>();
  while (found != nullptr && hasGeometry(*found) && isVisible(*found) == isHidden) {
    name = name == T::getClassName() ? (isHidden ? "Hidden" : "Shown") : name + "2";
    found = collection.find<T>(name);
  }
  return found != nullptr ? *found : collection.findOrCreate<T>(name);
}

/// For the ledger.
void keepReplacedSettings(const SharedBySiblings& shared, const lum::Node& drawable) {
  if (const auto earlier = shared.origins.find(&drawable); earlier != shared.origins.end()) {
    const ReadingContext::ItemScope scope(shared.context, GeometrySettings::ALL, earlier->second);
    const ReadingContext::AttributeScope attribute(shared.context, GeometrySettings::ALL);
    keepConsequence(shared.context, FindingCode::SETTINGS_REPLACED);
  }
}

void markPartsUnused(const QxElement& element) {
  for (const QxElement::Attribute& attribute : element.getAttributes()) {
    attribute.markUnused();
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
    : GraphicsItem(name), _polydata(std::make_shared<SharedPolyData>()) {}
GeometryItem::~GeometryItem() = default;

int GeometryItem::countItemsInList(Array_t<int> list) {
  return vemo::countCells(std::span(list.data, static_cast<std::size_t>(list.count)));
}

void GeometryItem::setGeometry(vtkPolyData* polyData, vtkPolyDataMapper* mapper, vtkProperty* property) {
  _polydata = polyData != nullptr ? std::make_shared<SharedPolyData>(*polyData) : nullptr;
  _geometryType = polyData != nullptr ? determineType(*polyData) : UNDETERMINED;
  _mapper = mapper;
  if (property != nullptr) {
    _property = property;
  }
}

vtkPolyData* GeometryItem::getGeometry() const {
  return _polydata ? _polydata->keep() : nullptr;
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
  checkVersion(element, reader, version());
  GraphicsItem::read(element, reader);
  readImpl(element, reader);
}

void GeometryItem::readImpl(const QxElement& element, SceneFileReader* reader) {
  HeldFindings held(reader, {SHOW_FACES, SHOW_EDGES, CONTOUR});
  GeometrySettings::KEYS.read(_settings, element, reader);
  const ValueReader values(element, reader, OnBadValue::FAIL);
  _settings.unknownScaleRange = values.findUnknownEnds("pointScaleScalarRange");
  _settings.unknownScaleSizes = values.findUnknownEnds("pointScaleScalarMapTo");
  _settings.isLightingUnknown =
      std::ranges::any_of(LIGHTING, [&](const char* key) { return values.isUnknown(key); });
  reportSettingsOutOfRange(element, *reader);
  setLineWidth(_settings.lineWidth);
  const PolyDataLoan polyData;
  const bool isWanted = reader->startPart(element);
  if (isWanted) {
    readGeometry(element, *polyData, *reader);
    _geometryType = determineType(*polyData);
  } else {
    _geometryType = outlineGeometry(element, *polyData, *reader);
  }
  GeometrySettings::KEYS.markInapplicable(element, _geometryType);
  if (!_settings.hasLighting()) {
    element.markUnused("specularPower");
  }
  reportUnused(values, *polyData);
  if (_geometryType == SURFACE && !_settings.showFaces && !_settings.showEdges && !_settings.contour &&
      !held.reportHidden({SHOW_FACES, SHOW_EDGES, CONTOUR}, "the surface is hidden") &&
      element.findAttribute(SHOW_FACES) == nullptr) {
    reader->report(FindingCode::HIDDEN_BY_DEFAULT,
                   "The surface is hidden: it states neither faces nor edges");
  }
  held.release();
  if (isWanted && _geometryType == SURFACE) {
    computeNormals(*polyData, *reader);
  }
  _polydata = reader->getDecoded().share(*polyData);
}

void GeometryItem::reportSettingsOutOfRange(const QxElement& element, SceneFileReader& reader) const {
  const auto report = [&reader](double value, const char* key, const std::string& meaning) {
    reader.report(FindingCode::VALUE_IGNORED,
                  fmt::format("The value {:g} of \"{}\" is out of range: it {}", value, key, meaning), {},
                  key);
  };
  // The item's own is a float, and may be another one.
  const double width = element.getDouble("lineWidth");
  if (width < 0.0) {
    report(width, "lineWidth", "counts as 0");
  }
  if (_settings.pointSize < lum::LEAST_PIXELS) {
    report(_settings.pointSize, "pointSize", "is drawn as 1");
  }
  if (_settings.pointScaleMode < 0 || _settings.pointScaleMode > 2) {
    report(_settings.pointScaleMode, "pointScaleMode", "counts as 0");
  }
  for (const auto& [key, value, greatest] :
       {std::tuple("lineWidth", width, lum::GREATEST_PIXELS),
        std::tuple("pointSize", _settings.pointSize, lum::GREATEST_PIXELS),
        std::tuple("ambient", _settings.ambient, 1.0), std::tuple("diffuse", _settings.diffuse, 1.0),
        std::tuple("specular", _settings.specular, 1.0),
        std::tuple("specularPower", _settings.specularPower, 128.0)}) {
    if (value > greatest) {
      report(value, key, fmt::format("is drawn as {:g}", greatest));
    }
  }
  for (const auto& [key, value] :
       {std::pair("ambient", _settings.ambient), std::pair("diffuse", _settings.diffuse),
        std::pair("specular", _settings.specular), std::pair("specularPower", _settings.specularPower)}) {
    if (value < 0.0) {
      report(value, key, "is drawn as 0");
    }
  }
}

/// Values that neither the scene graph nor VTK uses.
void GeometryItem::reportUnused(const ValueReader& values, vtkPolyData& polyData) const {
  if (_geometryType != POINTS && _settings.pointScaleMode != 0 && polyData.GetNumberOfVerts() > 0) {
    values.getReader()->report(FindingCode::POINTS_NOT_SCALED,
                               std::string("The vertices of ") +
                                   (_geometryType == LINES ? "lines" : "a surface") + " are not scaled",
                               {}, "pointScaleMode");
  }
  for (const auto& [key, range] : {std::pair("pointScaleScalarRange", &_settings.pointScaleScalarRange),
                                   std::pair("pointScaleScalarMapTo", &_settings.pointScaleScalarMapTo)}) {
    if (*range) {
      if (_geometryType != POINTS) {
        markPartsUnused(*values.getElement().findChild(key));
      }
      values.reportDepthWithoutEffect(key, (**range)[2]);
    }
  }
}

void GeometryItem::readGeometry(const QxElement& element, vtkPolyData& polyData, SceneFileReader& reader) {
  GeometryEntries entries;
  GeometryEntries::KEYS.read(entries, element, &reader);
  PolyDataReader data(polyData, _settings.smoothShading, reader.getDecoded(), reader);
  reader.attempt([&] {
    const ReadingContext::AttributeScope scope(&reader, "points");
    data.readPoints(entries.points.value_or(""));
  });
  for (const auto& [entry, kind] :
       {std::pair(&entries.verts, CellKind::VERTS), std::pair(&entries.lines, CellKind::LINES),
        std::pair(&entries.strips, CellKind::STRIPS), std::pair(&entries.polys, CellKind::POLYS)}) {
    if (*entry) {
      reader.attempt([&, place = kind, name = **entry] {
        const ReadingContext::AttributeScope scope(&reader, traitsOf(place).name);
        data.readCells(place, name);
      });
    }
  }
  VEMO_LOG_INFO("GeometryItem::read: " << element.getChildren().size() << " children detected");
  for (const auto& child : element.getChildren()) {
    if (child->getName() == GeometryArray::XML_ENTITY) {
      child->markRead();
      const ReadingContext::ItemScope scope(&reader, pathName(*child), child->getPlace());
      reader.attempt([&, &element = *child] {
        GeometryArray array;
        array.place = element.getPlace();
        HeldFindings held(&reader, {GeometryArray::COMPONENTS, GeometryArray::OF_POINTS});
        if (GeometryArray::KEYS.read(array, element, &reader)) {
          data.readArray(array, held);
        }
        held.release();
      });
    }
  }
  data.putArrays();
  _arraysLeftOut = data.getArraysLeftOut();
  if (data.hasAllCells()) {
    reportTypeChange(entries, data, determineType(polyData), reader);
  }
}

void GeometryItem::reportTypeChange(const GeometryEntries& entries, const PolyDataReader& data,
                                    GeometryType drawn, SceneFileReader& reader) {
  const auto report = [&](GeometryType stated, const char* reason) {
    reader.report(FindingCode::GEOMETRY_TYPE_CHANGED,
                  fmt::format("The geometry is drawn as {} instead of {}: {}", TYPE_NAMES[drawn],
                              TYPE_NAMES[stated], reason));
  };
  const GeometryType listed = typeOf(data.hasListed(CellKind::POLYS) || data.hasListed(CellKind::STRIPS),
                                     data.hasListed(CellKind::LINES));
  const GeometryType named = typeOf(entries.polys || entries.strips, entries.lines.has_value());
  if (listed != drawn) {
    report(listed, "all cells of that type are left out");
  } else if (named != drawn) {
    report(named, "its lists of cells of that type are empty");
  }
}

/// Puts empty arrays in place of those that would be read: their names are what the
/// conversion needs.
GeometryItem::GeometryType GeometryItem::outlineGeometry(const QxElement& element, vtkPolyData& polyData,
                                                         SceneFileReader& reader) {
  GeometryEntries entries;
  GeometryEntries::KEYS.read(entries, element, &reader);
  NamedArrays ofPoints;
  NamedArrays ofCells;
  for (const auto& child : element.getChildren()) {
    if (child->getName() == GeometryArray::XML_ENTITY) {
      child->markRead();
      GeometryArray array;
      GeometryArray::KEYS.read(array, *child, &reader);
      const auto values = vtkSmartPointer<vtkFloatArray>::New();
      values->SetName(array.name.c_str());
      (array.isOfPoints ? ofPoints : ofCells).put(*values);
    }
  }
  ofPoints.addTo(*polyData.GetPointData());
  ofCells.addTo(*polyData.GetCellData());
  const auto hasCells = [&reader](const std::optional<std::string>& entry) {
    return entry && reader.getArchive().getSize(*entry) > 0;
  };
  return typeOf(hasCells(entries.polys) || hasCells(entries.strips), hasCells(entries.lines));
}

GeometryItem::GeometryType GeometryItem::typeOf(bool hasFaces, bool hasLines) {
  return hasFaces ? SURFACE : hasLines ? LINES : POINTS;
}

GeometryItem::GeometryType GeometryItem::determineType(vtkPolyData& polyData) {
  return typeOf(polyData.GetNumberOfPolys() > 0 || polyData.GetNumberOfStrips() > 0,
                polyData.GetNumberOfLines() > 0);
}

void GeometryItem::computeNormals(vtkPolyData& polyData, SceneFileReader& reader) const {
  const bool areOfPoints = _settings.smoothShading;
  const auto normals = reader.getDecoded().getNormals(polyData, areOfPoints);
  if (areOfPoints) {
    polyData.GetPointData()->SetNormals(normals);
  } else {
    polyData.GetCellData()->SetNormals(normals);
  }
}

void GeometryItem::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                                   const std::string& parentName) const {
  VEMO_REQUIRE(_polydata, "must be not NULL");
  if (const auto* const other = collection.find<lum::DrawableCollection>(getName())) {
    reportSharedTransform(shared.context, *other, false);
  }
  if (shared.pointBounds == nullptr) {
    shared.pointBounds = std::make_shared<PointBounds>();
  }
  const bool isHidden = hasHiddenItems() || shared.hidesItemsIndividually;
  lum::DrawableCollection& own = shareCollection(collection, getName(), isHidden);
  const bool hidesDrawable = isVisible(own) ? isHidden : hasHiddenItems();
  const PolyDataLoan loan = _polydata->lend();
  vtkPolyData& polyData = *loan;
  logContents(polyData, level);
  switch (_geometryType) {
    case POINTS:
      addTo<lum::PointSphereDrawable>(own, polyData, hidesDrawable, parentName, shared);
      break;
    case LINES:
      // Those that were not read have no points either.
      if (polyData.GetPoints() != nullptr) {
        VEMO_REQUIRE(polyData.GetLines()->GetNumberOfCells() > 0, "must be greater than zero");
      }
      addTo<lum::PolyLineDrawable>(own, polyData, hidesDrawable, parentName, shared);
      break;
    case SURFACE:
      addTo<lum::SurfaceDrawable>(own, polyData, hidesDrawable, parentName, shared);
      break;
    default:
      VEMO_LOG_ERROR("Unrecognized geometry, exiting");
  }
}

/// Whether earlier geometry in the drawable stated what this item does not.
bool GeometryItem::hasSettingsOfOthers(const lum::GeometryDrawable& drawable, const PartsDrawn& parts) const {
  return (!_settings.hasLighting() && !parts.isLightingUnknown &&
          drawable.findAttributes<lum::MaterialAttributes>() != nullptr) ||
         (!_settings.hasPointScale() && drawable.findAttributes<lum::PointScaleAttributes>() != nullptr);
}

template <class T>
void GeometryItem::addTo(lum::DrawableCollection& collection, vtkPolyData& polyData, bool isHidden,
                         const std::string& parentName, SharedBySiblings& shared) const {
  T& drawable = findDrawable<T>(collection, isHidden);
  const bool isShared = hasGeometry(drawable);
  PartsDrawn& parts = shared.partsDrawn[&drawable];
  parts.isLightingUnknown = parts.isLightingUnknown || _settings.isLightingUnknown;
  const SharedSettings before(drawable, parts);
  const bool isColoredByOther = shared.colormap == nullptr && isColored(drawable, shared.coloring.get());
  lum::PolyDataNode& node =
      GeometryDrawableBuilder(_settings, polyData, drawable, *shared.pointBounds, shared.context)
          .build(parentName);
  addData(drawable, shared.coloring.get());
  node.setArraysLeftOut(_arraysLeftOut);
  if (shared.geometryNodes != nullptr) {
    shared.geometryNodes->emplace(getPlace().number, &node);
  }
  if (_property) {
    // A host may have changed the property.
    drawable.template getAttributes<lum::LineAttributes>().setLineWidth(_property->GetLineWidth());
  }
  addVisibilityAttrib(drawable, isHidden);
  const SharedSettings after(drawable, parts);
  const bool isKnownSame =
      parts.isLightingUnknown ? before.withoutLighting() == after.withoutLighting() : before == after;
  if (isShared && !isKnownSame) {
    reportReplaced(shared, drawable, FindingCode::SETTINGS_REPLACED,
                   "The settings of the geometry " + ReadingContext::quoted(getName()) +
                       " are replaced by those of a later geometry with the same name and type");
  }
  if (isShared && before != after) {
    keepReplacedSettings(shared, drawable);
  }
  if (isShared && hasSettingsOfOthers(drawable, parts)) {
    report(shared.context, FindingCode::SETTINGS_REPLACED,
           "The geometry " + ReadingContext::quoted(getName()) +
               " has settings of an earlier geometry with the same name and type that it does not state");
  }
  shared.origins[&drawable] = getPlace();
  if (isColoredByOther && drawable.getColorAttributes()->getColorMode() == lum::ColorMode::DATA) {
    report(shared.context, FindingCode::COLORMAP_REPLACED,
           "The data of " + ReadingContext::quoted(getName()) +
               " have the colours of an earlier geometry with the same name and type");
  }
  parts.isLightingUnknown =
      _settings.isLightingUnknown || (parts.isLightingUnknown && !_settings.hasLighting());
  parts.lines = parts.lines || polyData.GetNumberOfLines() > 0;
  parts.points = parts.points || _geometryType == POINTS || polyData.GetNumberOfVerts() > 0;
}

void GeometryItem::logContents(vtkPolyData& polyData, int level) const {
  VEMO_LOG_INFO("***** GeometryItem::addToCollection, level " << level << " *****");
  VEMO_LOG_INFO("*********** How many cells in polys? " << polyData.GetNumberOfPolys());
  logArrays("point", *polyData.GetPointData());
  logArrays("cell", *polyData.GetCellData());
  VEMO_LOG_INFO("*********** Has lines? " << (polyData.GetNumberOfLines() > 0));
  VEMO_LOG_INFO("*********** Has point data? " << (polyData.GetPointData()->GetNumberOfArrays() > 0));
}

}  // namespace vemo
