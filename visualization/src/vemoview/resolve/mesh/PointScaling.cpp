#include "vemoview/resolve/mesh/PointScaling.h"

#include "vemoview/resolve/UsableValues.h"
#include "vemoview/resolve/mesh/ArrayLookup.h"
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/attributes/PointScaleAttributes.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkPointData.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace vemo {

namespace {

/// More sizes cannot be distinguished.
constexpr std::size_t SIZES = 16;

/// The position of a value in a range, from 0 to 1.
class Scale {
 public:
  explicit Scale(const lum::PointScaleAttributes& attributes)
      : _isLog(attributes.getScaleMode() == lum::PointScaleMode::LOG10),
        _low(along(attributes.getScalarRange()[0])),
        _high(along(attributes.getScalarRange()[1])) {}

  double positionOf(double value) const {
    const double position = (along(value) - _low) / (_high - _low);
    return std::isnan(position) ? 0.0 : std::clamp(position, 0.0, 1.0);
  }

 private:
  double along(double value) const { return _isLog ? std::log10(value) : value; }

  bool _isLog;
  double _low;
  double _high;
};

/// Null when there is no such array, or it does not fit.
vtkDataArray* findFitting(const lum::PolyDataNode& node, const std::string& name, vtkIdType points) {
  vtkDataArray* const array = findArray(node.getNodeDataArrays(), name);
  const bool isFitting =
      array != nullptr && array->GetNumberOfTuples() == points && array->GetNumberOfComponents() > 0;
  return isFitting ? array : nullptr;
}

/// The vertices of each size.
std::array<vtkSmartPointer<vtkCellArray>, SIZES> sortVertices(vtkCellArray& vertices, vtkDataArray& values,
                                                              const Scale& scale) {
  std::array<vtkSmartPointer<vtkCellArray>, SIZES> sorted;
  for (auto& cells : sorted) {
    cells = vtkSmartPointer<vtkCellArray>::New();
  }
  for (vtkIdType cell = 0; cell < vertices.GetNumberOfCells(); ++cell) {
    vtkIdType size = 0;
    const vtkIdType* points = nullptr;
    vertices.GetCellAtId(cell, size, points);
    for (vtkIdType i = 0; i < size; ++i) {
      const double position = scale.positionOf(values.GetComponent(points[i], 0));
      const auto index = static_cast<std::size_t>(std::lround(position * (SIZES - 1)));
      sorted[index]->InsertNextCell(1, points + i);
    }
  }
  return sorted;
}

void setPointSize(Appearance& appearance, const lum::PointScaleAttributes& scale, double position) {
  const auto& sizes = scale.getMapToRange();
  const double size = (1.0 - position) * sizes[0] + position * sizes[1];
  appearance.isPointSizeInModelUnits = !scale.getPixelSize() && std::isfinite(size) && size > 0.0;
  appearance.pointSize = appearance.isPointSizeInModelUnits ? size : usablePixels(size);
}

}  // namespace

std::vector<MeshInstance> splitBySize(MeshInstance mesh, const lum::GeometryDrawable& drawable,
                                      const lum::PolyDataNode& node) {
  const auto* const attributes = drawable.findAttributes<lum::PointScaleAttributes>();
  if (mesh.appearance.kind != Appearance::Kind::POINTS || attributes == nullptr ||
      attributes->getScaleMode() == lum::PointScaleMode::CONSTANT) {
    return {std::move(mesh)};
  }
  vtkDataArray* const values =
      findFitting(node, attributes->getScalarName(), mesh.geometry->GetNumberOfPoints());
  const bool hasCellScalars = mesh.scalars && mesh.scalars->location == ScalarLocation::CELLS;
  if (values == nullptr || hasCellScalars) {
    reportFinding(
        FindingCode::POINTS_NOT_SCALED,
        "The points of \"" + node.getName() + "\" are not scaled by \"" + attributes->getScalarName() + '"');
    return {std::move(mesh)};
  }
  const auto sorted = sortVertices(*mesh.geometry->GetVerts(), *values, Scale(*attributes));
  std::vector<MeshInstance> meshes;
  for (std::size_t i = 0; i < SIZES; ++i) {
    if (sorted[i]->GetNumberOfCells() == 0) {
      continue;
    }
    MeshInstance part = mesh;
    part.geometry = vtkSmartPointer<vtkPolyData>::New();
    part.geometry->SetPoints(mesh.geometry->GetPoints());
    part.geometry->GetPointData()->ShallowCopy(mesh.geometry->GetPointData());
    part.geometry->SetVerts(sorted[i]);
    setPointSize(part.appearance, *attributes, static_cast<double>(i) / (SIZES - 1));
    meshes.push_back(std::move(part));
  }
  return meshes;
}

}  // namespace vemo
