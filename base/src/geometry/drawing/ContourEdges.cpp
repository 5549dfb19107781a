#include "geometry/drawing/ContourEdges.h"

#include "geometry/Cells.h"
#include "geometry/Normals.h"
#include "geometry/Points.h"

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <numeric>
#include <span>
#include <utility>
#include <vector>

namespace vemo {

namespace {

/// For each point, the first one at the same place.
std::vector<vtkIdType> firstAtPlace(vtkDataArray& array) {
  const PointReader reader(array);
  const auto count = static_cast<std::size_t>(reader.size());
  std::vector<vtkIdType> order(count);
  std::iota(order.begin(), order.end(), vtkIdType{0});
  std::vector<vtkIdType> result(count);
  reader.visit([&order, &result](const auto& points) {
    std::ranges::sort(order, {}, [&points](vtkIdType point) { return std::pair(points[point], point); });
    vtkIdType first = -1;
    for (const vtkIdType point : order) {
      first = first >= 0 && points[point] == points[first] ? first : point;
      result[static_cast<std::size_t>(point)] = first;
    }
  });
  return result;
}

/// Polygons and the triangles of strips, as polygons.
vtkSmartPointer<vtkPolyData> asPolygons(vtkPolyData& faces) {
  auto result = vtkSmartPointer<vtkPolyData>::New();
  result->SetPoints(faces.GetPoints());
  result->SetPolys(faces.GetPolys());
  if (faces.GetNumberOfStrips() > 0) {
    vtkNew<vtkCellArray> polygons;
    polygons->DeepCopy(faces.GetPolys());
    forEachCell(*faces.GetStrips(), [&polygons](auto strip) {
      forEachTriangle(strip, [&polygons](vtkIdType p0, vtkIdType p1, vtkIdType p2) {
        polygons->InsertNextCell({p0, p1, p2});
      });
    });
    result->SetPolys(polygons);
  }
  return result;
}

/// The edge of a face at the lower one of its points.
struct FaceEdge {
  vtkIdType higher;
  vtkIdType face;
};

/// The edges of all faces, in a list for each point.
class FaceEdges {
 public:
  FaceEdges(vtkCellArray& faces, const std::vector<vtkIdType>& places) : _ends(places.size() + 1) {
    forEachEdge(faces, places,
                [this](vtkIdType lower, const FaceEdge&) { ++_ends[static_cast<std::size_t>(lower) + 1]; });
    std::partial_sum(_ends.begin(), _ends.end(), _ends.begin());
    _edges.resize(_ends.back());
    // Each start of a list is advanced to its end.
    forEachEdge(faces, places, [this](vtkIdType lower, const FaceEdge& edge) {
      _edges[_ends[static_cast<std::size_t>(lower)]++] = edge;
    });
  }

  /// Calls the action with the ends of each edge, and with its faces.
  template <class Action>
  void forEach(const Action& action) {
    std::size_t begin = 0;
    for (std::size_t lower = 0; lower + 1 < _ends.size(); ++lower) {
      const std::span list(_edges.data() + begin, _ends[lower] - begin);
      begin = _ends[lower];
      std::ranges::sort(list, {}, [](const FaceEdge& edge) { return std::pair(edge.higher, edge.face); });
      for (auto first = list.begin(); first != list.end();) {
        const auto last = std::find_if(
            first, list.end(), [first](const FaceEdge& edge) { return edge.higher != first->higher; });
        action(static_cast<vtkIdType>(lower), first->higher, std::span(first, last));
        first = last;
      }
    }
  }

 private:
  /// Of faces that have three different corners or more.
  template <class Action>
  static void forEachEdge(vtkCellArray& faces, const std::vector<vtkIdType>& places, const Action& action) {
    vtkIdType face = -1;
    std::vector<vtkIdType> corners;
    forEachCell(faces, [&](auto cell) {
      ++face;
      corners.clear();
      for (const auto point : cell) {
        const vtkIdType place = places[static_cast<std::size_t>(point)];
        if (corners.empty() || corners.back() != place) {
          corners.push_back(place);
        }
      }
      // Neighbours differ: then there is no further one.
      if (corners.back() == corners.front()) {
        corners.pop_back();
      }
      if (corners.size() < 3) {
        return;
      }
      vtkIdType before = corners.back();
      for (const vtkIdType corner : corners) {
        action(std::min(before, corner), FaceEdge{std::max(before, corner), face});
        before = corner;
      }
    });
  }

  std::vector<std::size_t> _ends;
  std::vector<FaceEdge> _edges;
};

/// Lines, with the points that they use.
class Lines {
 public:
  explicit Lines(vtkPoints& points)
      : _source(points), _numbers(static_cast<std::size_t>(points.GetNumberOfPoints()), -1) {
    _points->SetDataType(points.GetDataType());
  }

  void add(vtkIdType from, vtkIdType to) { _lines->InsertNextCell({numberOf(from), numberOf(to)}); }

  vtkSmartPointer<vtkPolyData> take() const {
    auto result = vtkSmartPointer<vtkPolyData>::New();
    result->SetPoints(_points);
    result->SetLines(_lines);
    return result;
  }

 private:
  vtkIdType numberOf(vtkIdType point) {
    vtkIdType& number = _numbers[static_cast<std::size_t>(point)];
    if (number < 0) {
      number = _points->InsertNextPoint(_source.GetPoint(point));
    }
    return number;
  }

  vtkPoints& _source;
  std::vector<vtkIdType> _numbers;
  vtkNew<vtkPoints> _points;
  vtkNew<vtkCellArray> _lines;
};

double cosineBetween(vtkFloatArray& normals, vtkIdType face, vtkIdType other) {
  const float* const a = normals.GetPointer(3 * face);
  const float* const b = normals.GetPointer(3 * other);
  return std::inner_product(a, a + 3, b, 0.0);
}

}  // namespace

vtkSmartPointer<vtkPolyData> contourEdges(vtkPolyData& faces, double leastBendDegrees) {
  const double greatestCosine = std::cos(leastBendDegrees * std::numbers::pi / 180.0);
  const auto polygons = asPolygons(faces);
  const auto normals = cellNormalsByArea(*polygons);
  Lines lines(*faces.GetPoints());
  FaceEdges(*polygons->GetPolys(), firstAtPlace(*faces.GetPoints()->GetData()))
      .forEach([&](vtkIdType from, vtkIdType to, std::span<const FaceEdge> edges) {
        const bool isBorder = edges.size() == 1;
        if (isBorder ||
            (edges.size() == 2 && cosineBetween(*normals, edges[0].face, edges[1].face) <= greatestCosine)) {
          lines.add(from, to);
        }
      });
  return lines.take();
}

vtkSmartPointer<vtkPolyData> faceEdges(vtkPolyData& faces) {
  vtkNew<vtkCellArray> lines;
  forEachFace(faces, [&lines](auto face) {
    lines->InsertNextCell(static_cast<int>(face.size()) + 1);
    for (const auto corner : face) {
      lines->InsertCellPoint(corner);
    }
    lines->InsertCellPoint(face.front());
  });
  auto result = vtkSmartPointer<vtkPolyData>::New();
  result->SetPoints(faces.GetPoints());
  result->SetLines(lines);
  return result;
}

}  // namespace vemo
