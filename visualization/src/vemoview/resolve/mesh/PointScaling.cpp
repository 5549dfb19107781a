#include "vemoview/resolve/mesh/PointScaling.h"

#include "base/Utf8.h"
#include "geometry/Cells.h"
#include "geometry/data/SharedData.h"
#include "geometry/drawing/SelectedData.h"
#include "scenegraph/attributes/PixelLimits.h"
#include "vemoview/resolve/mesh/ArrayLookup.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/attributes/PointScaleAttributes.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkIdList.h>
#include <vtkNew.h>
#include <vtkPointData.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace vemo {

namespace {

/// More sizes cannot be distinguished.
constexpr std::size_t SIZES = 16;

/// The position of a value in a range, from 0 to 1.
class Scale {
 public:
  Scale(const Vector<2, double>& range, bool isLog)
      : _isLog(isLog), _low(along(range[0])), _high(along(range[1])) {}

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
  return array != nullptr && array->GetNumberOfTuples() == points ? array : nullptr;
}

bool isAnyFinite(vtkDataArray& values) {
  for (vtkIdType i = 0; i < values.GetNumberOfTuples(); ++i) {
    if (std::isfinite(values.GetComponent(i, 0))) {
      return true;
    }
  }
  return false;
}

/// The least value above 0; infinite when there is none.
double leastPositive(vtkDataArray& values) {
  double least = std::numeric_limits<double>::infinity();
  for (vtkIdType i = 0; i < values.GetNumberOfTuples(); ++i) {
    const double value = values.GetComponent(i, 0);
    least = value > 0.0 ? std::min(least, value) : least;
  }
  return least;
}

/// The range of values for the range of sizes. A logarithmic one that starts at 0 or
/// below starts at the least value above 0 instead. Nothing if the range is empty then,
/// or its end has no logarithm.
std::optional<Vector<2, double>> resolveRange(const lum::PointScaleAttributes& attributes,
                                              vtkDataArray& values, const std::string& points) {
  Vector<2, double> range = attributes.getScalarRange();
  const double stated = range[0];
  const bool isLog = attributes.getScaleMode() == lum::PointScaleMode::LOG10;
  if (isLog && stated <= 0.0) {
    range[0] = leastPositive(values);
  }
  const bool isAdjusted = range[0] != stated;
  const bool hasLogarithms = !isLog || (range[1] > 0.0 && (!isAdjusted || range[0] < range[1]));
  if (!std::isfinite(range[1] - range[0]) || range[0] == range[1] || !hasLogarithms) {
    return std::nullopt;
  }
  if (isAdjusted && !attributes.getUnknownRange()[0]) {
    reportFinding(
        FindingCode::POINT_SCALE_ADJUSTED,
        fmt::format("{} are scaled logarithmically from {} instead of {}", points, range[0], stated));
  }
  return range;
}

/// Vertices of one size, and which of the mesh's they are.
struct SizeClass {
  vtkNew<vtkCellArray> vertices;
  vtkNew<vtkIdList> origins;
};

std::array<SizeClass, SIZES> sortVertices(vtkCellArray& vertices, vtkDataArray& values, const Scale& scale) {
  std::array<SizeClass, SIZES> sorted;
  forEachCell(vertices, [&, cell = vtkIdType(0)](auto points) mutable {
    for (const vtkIdType point : points) {
      const double position = scale.positionOf(values.GetComponent(point, 0));
      const auto index = static_cast<std::size_t>(std::lround(position * (SIZES - 1)));
      sorted[index].vertices->InsertNextCell(1, &point);
      sorted[index].origins->InsertNextId(cell);
    }
    ++cell;
  });
  return sorted;
}

vtkSmartPointer<vtkPolyData> partOf(vtkPolyData& whole, const SizeClass& size) {
  auto part = vtkSmartPointer<vtkPolyData>::New();
  part->SetPoints(whole.GetPoints());
  shareArrays(*whole.GetPointData(), *part->GetPointData());
  part->SetVerts(size.vertices);
  selectData(*whole.GetCellData(), *part->GetCellData(), *size.origins);
  return part;
}

void setPointSize(Appearance& appearance, const lum::PointScaleAttributes& scale, double position) {
  const auto& sizes = scale.getMapToRange();
  const double size = (1.0 - position) * sizes[0] + position * sizes[1];
  appearance.isPointSizeInModelUnits = !scale.getPixelSize() && std::isfinite(size) && size > 0.0;
  appearance.pointSize = appearance.isPointSizeInModelUnits ? size : usablePixels(size);
}

/// Whether the range would be unusable whatever its unknown ends were.
bool isRangeAtFault(const lum::PointScaleAttributes& attributes) {
  const auto& isUnknown = attributes.getUnknownRange();
  const auto& range = attributes.getScalarRange();
  const bool isLog = attributes.getScaleMode() == lum::PointScaleMode::LOG10;
  return (!isUnknown[0] && !isUnknown[1]) || (isLog && !isUnknown[1] && range[1] <= 0.0);
}

/// What is not scaled only because of what reading has reported is not another finding.
void reportNotScaled(const lum::PointScaleAttributes& attributes, const lum::PolyDataNode& node,
                     vtkDataArray* values, const std::string& points) {
  const std::string& name = attributes.getScalarName();
  const auto report = [&](std::string_view reason) {
    reportFinding(FindingCode::POINTS_NOT_SCALED,
                  fmt::format("{} are not scaled by \"{}\": {}", points, shortName(name), reason));
  };
  if (values == nullptr) {
    if (std::ranges::find(node.getArraysLeftOut(), name) == node.getArraysLeftOut().end()) {
      report("they have no array with that name and a value for each");
    }
  } else if (!isAnyFinite(*values)) {
    report("it has no finite values");
  } else if (isRangeAtFault(attributes)) {
    report("its range cannot be used");
  }
}

void reportUnusableSizes(const lum::PointScaleAttributes& scale, const std::string& points) {
  std::string changes;
  const auto add = [&changes](std::string_view change) {
    changes += (changes.empty() ? "" : ", ") + std::string(change);
  };
  const auto& sizes = scale.getMapToRange();
  const auto& isUnknown = scale.getUnknownSizes();
  const bool isInPixels = scale.getPixelSize();
  const auto isUnusable = [isInPixels](double size) {
    return !std::isfinite(size) || (isInPixels ? size < lum::LEAST_PIXELS : size <= 0.0);
  };
  if ((!isUnknown[0] && isUnusable(sizes[0])) || (!isUnknown[1] && isUnusable(sizes[1]))) {
    add("sizes that are not above 0, or too close to it, are drawn as 1 pixel");
  }
  if (isInPixels && std::ranges::any_of(sizes, [](double size) { return size > lum::GREATEST_PIXELS; })) {
    add(fmt::format("sizes above {0} are drawn as {0} pixels", lum::GREATEST_PIXELS));
  }
  if (!changes.empty()) {
    reportFinding(FindingCode::POINT_SCALE_ADJUSTED, fmt::format("{} are scaled to sizes from {} to {}: {}",
                                                                 points, sizes[0], sizes[1], changes));
  }
}

}  // namespace

const SizedPoints::Parts& SizedPoints::sort(vtkPolyData& points, vtkDataArray& values,
                                            const Vector<2, double>& range, bool isLog) {
  const auto [known, isNew] = _sorted.try_emplace({&points, &values, range, isLog});
  Sorted& result = known->second;
  if (isNew) {
    result.points = &points;
    const auto sorted = sortVertices(*points.GetVerts(), values, Scale(range, isLog));
    for (std::size_t i = 0; i < SIZES; ++i) {
      const vtkIdType count = sorted[i].vertices->GetNumberOfCells();
      if (count > 0) {
        result.parts.emplace(i, partOf(points, sorted[i]));
        result.made += 2 * count;
      }
    }
    _made += result.made;
  }
  return result.parts;
}

void SizedPoints::dropUnused() {
  std::erase_if(_sorted, [this](const auto& entry) {
    const Sorted& sorted = entry.second;
    const bool isUsed = std::ranges::any_of(
        sorted.parts, [](const auto& part) { return part.second->GetReferenceCount() > 1; });
    _made -= isUsed ? 0 : sorted.made;
    return !isUsed;
  });
}

std::vector<MeshInstance> SizedPoints::split(MeshInstance mesh, const lum::GeometryDrawable& drawable) {
  const auto* const attributes = drawable.findAttributes<lum::PointScaleAttributes>();
  if (mesh.appearance.kind != Appearance::Kind::POINTS || attributes == nullptr ||
      attributes->getScaleMode() == lum::PointScaleMode::CONSTANT) {
    return {std::move(mesh)};
  }
  const lum::PolyDataNode& node = *mesh.node;
  vtkDataArray* const values =
      findFitting(node, attributes->getScalarName(), mesh.geometry->GetNumberOfPoints());
  const std::string points = "The points of \"" + itemNameOf(node) + '"';
  const bool hasNumbers = values != nullptr && isAnyFinite(*values);
  const auto range = hasNumbers ? resolveRange(*attributes, *values, points) : std::nullopt;
  if (!range) {
    reportNotScaled(*attributes, node, values, points);
    return {std::move(mesh)};
  }
  reportUnusableSizes(*attributes, points);
  const bool isLog = attributes->getScaleMode() == lum::PointScaleMode::LOG10;
  std::vector<MeshInstance> meshes;
  for (const auto& [size, geometry] : sort(*mesh.geometry, *values, *range, isLog)) {
    MeshInstance part = mesh;
    part.geometry = geometry;
    setPointSize(part.appearance, *attributes, static_cast<double>(size) / (SIZES - 1));
    meshes.push_back(std::move(part));
  }
  return meshes;
}

}  // namespace vemo
