// The part of the GeometryItem that draws with VTK directly.

#include "vemoview/import/geometry/GeometryProperties.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/geometry/GeometryItem.h>
#include <vemo/import/items/ClippingPlane.h>
#include <vemo/import/items/Colormap.h>

#include <vtkActor.h>
#include <vtkCellData.h>
#include <vtkLookupTable.h>
#include <vtkPlane.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>

namespace vemo {

vtkProperty* GeometryItem::getProperty() const {
  if (!_property) {
    _property = vtkSmartPointer<vtkProperty>::New();
    _property->SetLineWidth(_settings.lineWidth);
  }
  return _property;
}

vtkPolyDataMapper* GeometryItem::getMapper() {
  if (!_mapper) {
    _mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
    VEMO_REQUIRE(_mapper, "Drawing needs VTK's OpenGL module");
    _mapper->SetInputData(getGeometry());
  }
  return _mapper;
}

vtkActor* GeometryItem::getActor() {
  if (!_actor) {
    _actor = vtkSmartPointer<vtkActor>::New();
    VEMO_REQUIRE(_actor, "Drawing needs VTK's OpenGL module");
  }
  _actor->SetMapper(getMapper());
  _actor->SetProperty(getProperty());
  return _actor;
}

void GeometryItem::setRenderingFlags(vtkPolyDataMapper* mapper) {
  mapper->SetColorModeToMapScalars();
  mapper->SetInterpolateScalarsBeforeMapping(true);
  mapper->SetUseLookupTableScalarRange(true);
}

void GeometryItem::setScalarArray(vtkPolyDataMapper* mapper, const std::string& name) {
  vtkPolyData& polyData = *getGeometry();
  const bool isOfCells = polyData.GetCellData()->HasArray(name.c_str()) != 0;
  const bool isOfPoints = !isOfCells && polyData.GetPointData()->HasArray(name.c_str()) != 0;
  mapper->SetScalarVisibility(isOfCells || isOfPoints);
  if (isOfCells) {
    mapper->SetScalarModeToUseCellFieldData();
  } else {
    mapper->SetScalarModeToUsePointFieldData();
  }
  mapper->SelectColorArray(name.c_str());
}

void GeometryItem::setScalars(vtkPolyDataMapper* mapper, const Colormap* colormap) {
  if (colormap == nullptr) {
    mapper->ScalarVisibilityOff();
    return;
  }
  const auto table = colormap->makeUsableLookupTable();
  mapper->ScalarVisibilityOn();
  mapper->SetLookupTable(table);
  mapper->SetScalarRange(table->GetRange());
}

void GeometryItem::setClippingPlanes(vtkPolyDataMapper* mapper, const std::vector<ClippingPlane*>& planes) {
  mapper->RemoveAllClippingPlanes();
  if (_settings.ignoreClip) {
    return;
  }
  for (ClippingPlane* const plane : planes) {
    mapper->AddClippingPlane(plane->getPlane());
  }
}

void GeometryItem::setLineRenderingPropeties(bool asEdges) {
  applyLineProperties(*getProperty(), _settings, asEdges);
}

void GeometryItem::setPolygonRenderingProperties() {
  applyFaceProperties(*getProperty(), _settings);
}

void GeometryItem::setLineAndPolygonRenderingProperties() {
  VEMO_REQUIRE(_geometryType == LINES || _geometryType == SURFACE,
               "Unexpected item type in GeometryItem::setLineAndPolygonRenderingProperties");
  if (_geometryType == SURFACE && _settings.showFaces) {
    setPolygonRenderingProperties();
  } else {
    setLineRenderingPropeties(_geometryType == SURFACE);
  }
}

void GeometryItem::setActorOpacity(double opacity) {
  switch (_geometryType) {
    case POINTS:
      return setPointSpriteOpacity(opacity);
    case LINES:
      return setMyOpacity(getActor(), opacity * _settings.lineColor.getOpacity());
    case SURFACE:
      return setMyOpacity(getActor(), opacity * surfaceOpacity(_settings));
    default:
      throw InternalError("Unexpected geometry type in GeometryItem::setActorOpacity",
                          "_geometryType != UNDETERMINED", __FILE__, __LINE__);
  }
}

void GeometryItem::setPointSpriteOpacity(double opacity) {
  applySphereProperties(*getProperty(), _settings);
  setMyOpacity(getActor(), opacity);
}

}  // namespace vemo
