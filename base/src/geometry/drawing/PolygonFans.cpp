#include "geometry/drawing/PolygonFans.h"

#include "geometry/Cells.h"
#include "geometry/Points.h"
#include "geometry/data/SharedData.h"

#include <vtkCellArray.h>
#include <vtkNew.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace vemo {

namespace {

/// The corners of a polygon.
class Polygon {
 public:
  void setSize(std::size_t size) { _corners.resize(size); }
  Vector3& operator[](std::size_t corner) { return _corners[corner]; }

  /// The corner at which a fan is to begin; nothing if all fold over.
  std::optional<std::size_t> findBegin() const {
    // If none of so many works, there is rarely another.
    constexpr std::size_t MAX_TRIES = 100;
    const Vector3 area = areaOfFan();
    // Parts that cross cancel each other.
    constexpr double LEAST_PART = 1e-6;
    if (length(area) < LEAST_PART * areaOfTriangles()) {
      return std::nullopt;
    }
    // What the rounding of coordinates can make of corners in a row.
    constexpr double TOLERANCE = std::numeric_limits<float>::epsilon();
    const double least = -TOLERANCE * area.squaredLength();
    for (std::size_t begin = 0; begin < std::min(_corners.size(), MAX_TRIES); ++begin) {
      if (isFlatAround(begin, area, least)) {
        return begin;
      }
    }
    return std::nullopt;
  }

 private:
  const Vector3& at(std::size_t corner) const { return _corners[corner % _corners.size()]; }

  /// Twice the area of a triangle of a fan, along its normal.
  Vector3 triangle(std::size_t begin, std::size_t number) const {
    return cross(at(begin + number) - at(begin), at(begin + number + 1) - at(begin));
  }

  /// Of the whole polygon, wherever the fan begins.
  Vector3 areaOfFan() const {
    Vector3 sum{};
    for (std::size_t i = 1; i + 1 < _corners.size(); ++i) {
      sum += triangle(0, i);
    }
    return sum;
  }

  double areaOfTriangles() const {
    double sum = 0.0;
    for (std::size_t i = 1; i + 1 < _corners.size(); ++i) {
      sum += length(triangle(0, i));
    }
    return sum;
  }

  bool isFlatAround(std::size_t begin, const Vector3& area, double least) const {
    for (std::size_t i = 1; i + 1 < _corners.size(); ++i) {
      if (dot(triangle(begin, i), area) < least) {
        return false;
      }
    }
    return true;
  }

  std::vector<Vector3> _corners;
};

/// A polygon, by its number, and the corner at which it is to begin.
using Turn = std::pair<vtkIdType, std::size_t>;

std::vector<Turn> findTurns(vtkCellArray& polygons, const PointReader& points,
                            std::vector<vtkIdType>& folded) {
  std::vector<Turn> turns;
  Polygon polygon;
  vtkIdType number = 0;
  forEachCell(polygons, [&](auto cell) {
    if (cell.size() > 3) {
      polygon.setSize(cell.size());
      for (std::size_t i = 0; i < cell.size(); ++i) {
        polygon[i] = points[cell[i]];
      }
      const auto begin = polygon.findBegin();
      if (!begin) {
        folded.push_back(number);
      }
      if (begin.value_or(0) > 0) {
        turns.emplace_back(number, *begin);
      }
    }
    ++number;
  });
  return turns;
}

void turn(vtkCellArray& polygons, const std::vector<Turn>& turns) {
  polygons.Visit([&turns](auto& storage) {
    const auto* const offsets = storage.GetOffsets()->GetPointer(0);
    auto* const indices = storage.GetConnectivity()->GetPointer(0);
    for (const auto& [polygon, begin] : turns) {
      auto* const first = indices + offsets[polygon];
      std::rotate(first, first + begin, indices + offsets[polygon + 1]);
    }
  });
}

}  // namespace

std::vector<vtkIdType> unfoldFans(vtkSmartPointer<vtkPolyData>& geometry) {
  vtkCellArray& polygons = *geometry->GetPolys();
  std::vector<vtkIdType> folded;
  if (polygons.GetNumberOfCells() == 0 || polygons.IsHomogeneous() == 3) {
    return folded;
  }
  const auto turns = findTurns(polygons, PointReader(*geometry->GetPoints()->GetData()), folded);
  if (!turns.empty()) {
    vtkNew<vtkCellArray> turned;
    turned->DeepCopy(&polygons);
    turn(*turned, turns);
    auto copy = shallowCopy(*geometry);
    copy->SetPolys(turned);
    geometry = copy;
  }
  return folded;
}

}  // namespace vemo
