#include "vemoview/render/resolve/PointSizes.h"

#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/attributes/RenderingAttributes.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkPointData.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace vemo {

namespace {

/// So many sizes cannot be told apart.
constexpr std::size_t SIZES = 16;

/// The place of a value in a range, from 0 to 1.
class Scale {
 public:
  explicit Scale(const lum::PointScaleAttributes& attributes)
      : _isLog(attributes.getScaleMode() == lum::PointScaleMode::LOG10),
        _low(along(attributes.getScalarRange()[0])),
        _high(along(attributes.getScalarRange()[1])) {}

  double placeOf(double value) const {
    const double place = (along(value) - _low) / (_high - _low);
    return std::isnan(place) ? 0.0 : std::clamp(place, 0.0, 1.0);
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
      const double place = scale.placeOf(values.GetComponent(points[i], 0));
      const auto index = static_cast<std::size_t>(std::lround(place * (SIZES - 1)));
      sorted[index]->InsertNextCell(1, points + i);
    }
  }
  return sorted;
}

}  // namespace

std::vector<Piece> splitBySize(Piece piece, const lum::GeometryDrawable& drawable,
                               const lum::PolyDataNode& node) {
  const auto* const attributes = drawable.findAttributes<lum::PointScaleAttributes>();
  if (piece.appearance.kind != Appearance::Kind::POINTS || attributes == nullptr ||
      attributes->getScaleMode() == lum::PointScaleMode::CONSTANT) {
    return {std::move(piece)};
  }
  vtkDataArray* const values =
      findFitting(node, attributes->getScalarName(), piece.geometry->GetNumberOfPoints());
  if (values == nullptr || piece.coloring == Piece::Coloring::CELL_SCALARS) {
    VEMO_LOG_WARNING("The points of \"" << node.getName() << "\" are not scaled by \""
                                        << attributes->getScalarName() << "\"");
    return {std::move(piece)};
  }
  const auto sorted = sortVertices(*piece.geometry->GetVerts(), *values, Scale(*attributes));
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < SIZES; ++i) {
    if (sorted[i]->GetNumberOfCells() == 0) {
      continue;
    }
    Piece part = piece;
    part.geometry = vtkSmartPointer<vtkPolyData>::New();
    part.geometry->SetPoints(piece.geometry->GetPoints());
    part.geometry->GetPointData()->ShallowCopy(piece.geometry->GetPointData());
    part.geometry->SetVerts(sorted[i]);
    part.appearance.setPointSize(*attributes, static_cast<double>(i) / (SIZES - 1));
    pieces.push_back(std::move(part));
  }
  return pieces;
}

}  // namespace vemo
