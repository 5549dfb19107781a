#include "geometry/drawing/ContourEdges.h"

#include "geometry/Cells.h"
#include "geometry/NewArray.h"
#include "geometry/Normals.h"
#include "geometry/Points.h"
#include "geometry/drawing/DrawableCells.h"

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkFloatArray.h>
#include <vtkIdList.h>
#include <vtkNew.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <numeric>
#include <span>
#include <utility>
#include <vector>

namespace vemo {

namespace {

/// Of a point, a face or an edge: half the memory of VTK's numbers, in lists that are as long as the mesh.
using Number = std::uint32_t;

/// For each point, the first one at the same place.
std::vector<Number> firstAtPlace(vtkDataArray& array) {
  const PointReader reader(array);
  const auto count = static_cast<std::size_t>(reader.size());
  std::vector<Number> order(count);
  std::iota(order.begin(), order.end(), Number{0});
  std::vector<Number> result(count);
  reader.visit([&order, &result](const auto& points) {
    std::ranges::sort(order, {}, [&points](Number point) { return std::pair(points[point], point); });
    Number first = order.empty() ? 0 : order.front();
    for (const Number point : order) {
      first = points[point] == points[first] ? first : point;
      result[point] = first;
    }
  });
  return result;
}

/// The edge of a face at the lower one of its points.
struct FaceEdge {
  Number higher;
  Number face;
};

/// The edges of all faces, in a list for each point.
class FaceEdges {
 public:
  FaceEdges(vtkPolyData& faces, std::span<const Number> places) : _ends(places.size() + 1) {
    forEachEdge(faces, places, [this](Number lower, const FaceEdge&) { ++_ends[lower + 1]; });
    std::partial_sum(_ends.begin(), _ends.end(), _ends.begin());
    _edges.resize(_ends.back());
    // Each start of a list is advanced to its end.
    forEachEdge(faces, places, [this](Number lower, const FaceEdge& edge) { _edges[_ends[lower]++] = edge; });
    _ends.pop_back();
  }

  /// Keeps each edge once if condition(edges of all faces that have it) holds, else none of them.
  template <class Condition>
  void keepIf(const Condition& condition) {
    Number begin = 0;
    Number kept = 0;
    for (Number& end : _ends) {
      const std::span list(_edges.data() + begin, end - begin);
      begin = end;
      std::ranges::sort(list, {}, [](const FaceEdge& edge) { return std::pair(edge.higher, edge.face); });
      for (auto first = list.begin(); first != list.end();) {
        const auto last = std::find_if(
            first, list.end(), [first](const FaceEdge& edge) { return edge.higher != first->higher; });
        if (condition(std::span<const FaceEdge>(first, last))) {
          _edges[kept++] = *first;
        }
        first = last;
      }
      end = kept;
    }
    _edges.resize(kept);
  }

  std::size_t size() const { return _edges.size(); }

  /// Calls visit(lower point, higher point) for each edge.
  template <class Visit>
  void forEach(const Visit& visit) const {
    std::size_t edge = 0;
    for (std::size_t lower = 0; lower < _ends.size(); ++lower) {
      for (; edge < _ends[lower]; ++edge) {
        visit(static_cast<vtkIdType>(lower), vtkIdType{_edges[edge].higher});
      }
    }
  }

 private:
  /// Of faces that have three different corners or more.
  template <class Action>
  static void forEachEdge(vtkPolyData& faces, std::span<const Number> places, const Action& action) {
    Number face = 0;
    std::vector<Number> corners;
    forEachFace(faces, [&](auto cell) {
      const Number number = face++;
      corners.clear();
      for (const auto point : cell) {
        const Number place = places[static_cast<std::size_t>(point)];
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
      Number before = corners.back();
      for (const Number corner : corners) {
        action(std::min(before, corner), FaceEdge{std::max(before, corner), number});
        before = corner;
      }
    });
  }

  std::vector<Number> _ends;
  std::vector<FaceEdge> _edges;
};

double cosineBetween(vtkFloatArray& normals, Number face, Number other) {
  const float* const a = normals.GetPointer(3 * vtkIdType{face});
  const float* const b = normals.GetPointer(3 * vtkIdType{other});
  return std::inner_product(a, a + 3, b, 0.0);
}

/// The edges at which a contour is drawn.
FaceEdges findContour(vtkPolyData& faces, double leastBendDegrees) {
  const double greatestCosine = std::cos(leastBendDegrees * std::numbers::pi / 180.0);
  FaceEdges result(faces, firstAtPlace(*faces.GetPoints()->GetData()));
  const auto normals = faceNormalsByArea(faces);
  result.keepIf([&](std::span<const FaceEdge> edges) {
    const bool isBorder = edges.size() == 1;
    return isBorder ||
           (edges.size() == 2 && cosineBetween(*normals, edges[0].face, edges[1].face) <= greatestCosine);
  });
  return result;
}

vtkNew<vtkCellArray> newCells(vtkIdType cells, vtkIdType corners) {
  vtkNew<vtkCellArray> result;
  result->Use32BitStorage();
  allocateCells(*result, cells, corners);
  return result;
}

vtkSmartPointer<vtkPolyData> linesBetween(vtkPoints& points, vtkCellArray& lines) {
  auto result = vtkSmartPointer<vtkPolyData>::New();
  result->SetPoints(&points);
  result->SetLines(&lines);
  return result;
}

bool useAllPoints(const FaceEdges& edges, vtkIdType points) {
  std::vector<bool> isUsed(static_cast<std::size_t>(points));
  edges.forEach([&isUsed](vtkIdType lower, vtkIdType higher) {
    isUsed[static_cast<std::size_t>(lower)] = true;
    isUsed[static_cast<std::size_t>(higher)] = true;
  });
  return std::ranges::find(isUsed, false) == isUsed.end();
}

/// With the points that they use.
vtkSmartPointer<vtkPolyData> toLines(const FaceEdges& edges, vtkPoints& points) {
  const auto count = static_cast<vtkIdType>(edges.size());
  const auto lines = newCells(count, 2 * count);
  edges.forEach([&lines](vtkIdType lower, vtkIdType higher) { lines->InsertNextCell({lower, higher}); });
  auto result = linesBetween(points, *lines);
  if (useAllPoints(edges, points.GetNumberOfPoints())) {
    return result;
  }
  vtkNew<vtkIdList> numbers;
  return withUsedPoints(*result, *numbers);
}

}  // namespace

vtkSmartPointer<vtkPolyData> contourEdges(vtkPolyData& faces, double leastBendDegrees) {
  return toLines(findContour(faces, leastBendDegrees), *faces.GetPoints());
}

vtkSmartPointer<vtkPolyData> faceEdges(vtkPolyData& faces) {
  const vtkCellArray& polys = *faces.GetPolys();
  const vtkIdType triangles = countTriangles(*faces.GetStrips());
  const auto lines = newCells(polys.GetNumberOfCells() + triangles,
                              polys.GetNumberOfConnectivityIds() + polys.GetNumberOfCells() + 4 * triangles);
  forEachFace(faces, [&lines](auto face) {
    lines->InsertNextCell(static_cast<int>(face.size()) + 1);
    for (const auto corner : face) {
      lines->InsertCellPoint(corner);
    }
    lines->InsertCellPoint(face.front());
  });
  return linesBetween(*faces.GetPoints(), *lines);
}

}  // namespace vemo
