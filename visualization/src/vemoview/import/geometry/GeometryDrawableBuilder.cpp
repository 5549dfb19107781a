#include "vemoview/import/geometry/GeometryDrawableBuilder.h"

#include "geometry/Normals.h"
#include "vemoview/import/geometry/PointBounds.h"
#include "vemoview/import/reading/CopiedText.h"
#include "vemoview/import/reading/ReadingContext.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/geometry/GeometrySettings.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/attributes/ContourAttributes.h>
#include <vemo/scenegraph/attributes/LineAttributes.h>
#include <vemo/scenegraph/attributes/MaterialAttributes.h>
#include <vemo/scenegraph/attributes/MeshAttributes.h>
#include <vemo/scenegraph/attributes/PointAttributes.h>
#include <vemo/scenegraph/attributes/PointScaleAttributes.h>
#include <vemo/scenegraph/attributes/PointSizeAttributes.h>
#include <vemo/scenegraph/attributes/SurfaceAttributes.h>
#include <vemo/scenegraph/drawables/PolyLineDrawable.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>

#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>

#include <fmt/format.h>
#include <string_view>

namespace vemo {

namespace {

/// The first array that is data of the scene, and not normals for its shading.
vtkDataArray* findScalars(vtkDataSetAttributes& data) {
  for (int i = 0; i < data.GetNumberOfArrays(); ++i) {
    vtkDataArray* const array = data.GetArray(i);
    if (array != nullptr && (array->GetName() == nullptr || std::string_view(array->GetName()) != NORMALS)) {
      return array;
    }
  }
  return nullptr;
}

lum::PointScaleMode scaleModeOf(int mode) {
  switch (mode) {
    case 1:
      return lum::PointScaleMode::LINEAR;
    case 2:
      return lum::PointScaleMode::LOG10;
    default:
      return lum::PointScaleMode::CONSTANT;
  }
}

}  // namespace

GeometryDrawableBuilder::GeometryDrawableBuilder(const GeometrySettings& settings, vtkPolyData& polyData,
                                                 lum::GeometryDrawable& drawable, PointBounds& pointBounds,
                                                 ReadingContext* context)
    : _settings(settings),
      _polyData(polyData),
      _drawable(drawable),
      _pointBounds(pointBounds),
      _context(context),
      _colorAttributes(drawable.getColorAttributes()) {
  VEMO_REQUIRE(_colorAttributes, "must be not NULL");
}

lum::PolyDataNode& GeometryDrawableBuilder::build(const std::string& qualifiedName) {
  lum::PolyDataNode& node = addPolyData(qualifiedName);
  applyRenderingAttributes(node);
  colorByData();
  return node;
}

Vector<3, double> GeometryDrawableBuilder::findCenter() const {
  vtkPoints* const points = _polyData.GetPoints();
  const auto bounds = points != nullptr ? _pointBounds.of(*points->GetData()) : PointBounds::Bounds();
  if (bounds.nonFinite > 0) {
    report(_context, FindingCode::POINTS_WITHOUT_POSITION,
           fmt::format("{} of {} points have no finite coordinates and are not drawn", bounds.nonFinite,
                       _polyData.GetNumberOfPoints()));
  }
  if (!bounds.box.isEmpty()) {
    return bounds.box.center();
  }
  VEMO_LOG_INFO("Investigate this case. Probably, should be caught earlier.");
  return {};
}

/// Arrays over points and cells come with the poly data.
lum::PolyDataNode& GeometryDrawableBuilder::addPolyData(const std::string& qualifiedName) {
  const lum::Ptr<lum::PolyDataNode> node(new lum::PolyDataNode(
      lum::ClassNameAndSessionNodeInitializer(lum::PolyDataNode::getClassName(), _drawable.getSessionId())));
  node->setAttachmentPoint(findCenter(), 0);
  node->setPolyData(&_polyData);
  _drawable.addNode(*node);
  node->setQualifiedName(beginOf(qualifiedName, MAX_COPIED_TEXT));
  return *node;
}

void GeometryDrawableBuilder::applyRenderingAttributes(const lum::PolyDataNode& node) {
  _colorAttributes->setColorMode(lum::ColorMode::PLAIN);
  if (dynamic_cast<lum::SurfaceDrawable*>(&_drawable) != nullptr) {
    applySurfaceAttributes(node.getName());
  } else if (dynamic_cast<lum::PolyLineDrawable*>(&_drawable) != nullptr) {
    applyLineColor(node.getName());
  } else if (_settings.hasPointScale()) {
    applyPointScale();
  }
  applyLighting();
  _drawable.getAttributes<lum::LineAttributes>().setLineWidth(_settings.lineWidth);
  _drawable.getAttributes<lum::PointAttributes>().setSize(static_cast<float>(_settings.pointSize));
  _drawable.getAttributes<lum::PointSizeAttributes>().setPointSize(_settings.pointSize);
  _drawable.getBaseAttributes().setClipPlanesEnabled(!_settings.ignoreClip);
}

void GeometryDrawableBuilder::applySurfaceAttributes(const std::string& key) {
  _colorAttributes->setColor(key, _settings.faceColor.getRGB());
  _colorAttributes->setOpacity(_settings.faceColor.getOpacity(), false);
  _colorAttributes->setColorMode(lum::ColorMode::KEYED);
  _drawable.getAttributes<lum::SurfaceAttributes>().setShaded(_settings.showFaces);
  auto& mesh = _drawable.getAttributes<lum::MeshAttributes>();
  mesh.setMeshVisible(_settings.showEdges, false);
  mesh.setMeshColor(_settings.lineColor.getRGB());
  mesh.setMeshOpacity(_settings.lineColor.getOpacity());
  _drawable.getAttributes<lum::ContourAttributes>().setContourVisible(_settings.contour);
}

void GeometryDrawableBuilder::applyLighting() {
  if (!_settings.hasLighting()) {
    return;
  }
  auto& material = _drawable.getAttributes<lum::MaterialAttributes>();
  material.setAmbient(_settings.ambient);
  material.setDiffuse(_settings.diffuse);
  material.setSpecular(_settings.specular);
  material.setSpecularPower(_settings.specularPower);
}

/// The range stated, or else that of the array's finite values.
Vector<2, double> GeometryDrawableBuilder::scaledValues() const {
  if (const auto* const stated = _settings.pointScaleScalarRange.get()) {
    return {(*stated)[0], (*stated)[1]};
  }
  vtkDataArray* const values = _polyData.GetPointData()->GetArray(_settings.pointScaleScalarName.c_str());
  Vector<2, double> range{1.0, 0.0};
  if (values != nullptr) {
    values->GetFiniteRange(range.data());
  }
  return range[0] <= range[1] ? range : Vector<2, double>{0.0, 1.0};
}

void GeometryDrawableBuilder::applyPointScale() {
  auto& scale = _drawable.getAttributes<lum::PointScaleAttributes>();
  scale.setScaleMode(scaleModeOf(_settings.pointScaleMode));
  scale.setPixelSize(_settings.pointScalePixelSize != 0);
  scale.setScalarName(_settings.pointScaleScalarName);
  scale.setScalarRange(scaledValues());
  scale.setUnknownRange(_settings.unknownScaleRange);
  scale.setUnknownSizes(_settings.unknownScaleSizes);
  const auto* const sizes = _settings.pointScaleScalarMapTo.get();
  const double size = _settings.pointSize;
  if (scale.getScaleMode() != lum::PointScaleMode::CONSTANT && sizes == nullptr &&
      _polyData.GetPointData()->HasArray(_settings.pointScaleScalarName.c_str()) != 0) {
    report(_context, FindingCode::POINTS_NOT_SCALED,
           "The points are not scaled by " + ReadingContext::quoted(_settings.pointScaleScalarName) +
               ": no sizes are stated for the ends of its range");
  }
  scale.setMapToRange(sizes != nullptr ? Vector<2, double>{(*sizes)[0], (*sizes)[1]}
                                       : Vector<2, double>{size, size});
}

void GeometryDrawableBuilder::applyLineColor(const std::string& key) {
  const auto color = _settings.lineColor.getRGB();
  if (findScalars(*_polyData.GetPointData()) != nullptr) {
    _colorAttributes->setColor(key, color);
  } else {
    _colorAttributes->setColor(color, false);
  }
  _colorAttributes->setOpacity(_settings.lineColor.getOpacity(), false);
}

void GeometryDrawableBuilder::colorByData() {
  if (vtkDataArray* const array = findScalars(*_polyData.GetCellData())) {
    colorBy(*array, lum::DataLocation::CELLS);
  } else if (vtkDataArray* const pointArray = findScalars(*_polyData.GetPointData())) {
    colorBy(*pointArray, lum::DataLocation::POINTS);
  }
}

void GeometryDrawableBuilder::colorBy(vtkDataArray& array, lum::DataLocation location) {
  _colorAttributes->setColorMode(lum::ColorMode::DATA);
  const char* const name = array.GetName();
  _drawable.getAttributes<lum::ScalarAttributes>().getDataArray().setDataArrayName(name != nullptr ? name
                                                                                                   : "");
  _drawable.getAttributes<lum::DataLocationAttributes>().setDataLocation(location);
}

}  // namespace vemo
