#include "geometry/Normals.h"

#include "geometry/Cells.h"
#include "geometry/NewArray.h"
#include "geometry/Points.h"
#include "geometry/PolygonArea.h"
#include "geometry/Winding.h"
#include "geometry/kernels/TriangleNormals.h"

#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <span>
#include <type_traits>
#include <vector>

// Sums have the order and the precision of vtkPolyDataNormals (9.1), which were found
// by comparison: normals of cells are computed in double and rounded to float, then
// summed at points in float, polygons before strips; the squares of the sum are float,
// their root is double. The results are the same bit for bit, unless the compiler fuses
// multiplications with additions.
namespace vemo {
namespace {

using Normal = Vector<3, float>;

enum class PolygonNormal { OF_CORNERS, OF_AREA };

/// What VTK writes for verts and lines, which have no normals.
constexpr Normal NO_NORMAL{1.0F, 0.0F, 0.0F};

// "inline" raises the compiler's limits for inlining: vectors passed through memory
// double the time.

/// The cross product of the edges that leave the middle corner: twice the area
/// of the triangle, along its normal.
inline Vector3 cornerProduct(const Vector3& before, const Vector3& corner, const Vector3& after) {
  return cross(after - corner, before - corner);
}

/// The direction with a length of 1; zero if its length is zero or not finite.
inline Normal unit(const Vector3& direction) {
  const double norm = length(direction);
  if (norm == 0.0 || !std::isfinite(norm)) {
    return {};
  }
  return {static_cast<float>(direction[0] / norm), static_cast<float>(direction[1] / norm),
          static_cast<float>(direction[2] / norm)};
}

template <class Points, class Index>
inline Vector3 triangleProduct(const Points& points, Index p0, Index p1, Index p2) {
  return cornerProduct(points[p0], points[p1], points[p2]);
}

/// A polygon of more than three points need be neither flat nor convex: the
/// products of all its corners are summed.
template <class Points, class Index>
Vector3 cornerProducts(const Points& points, std::span<const Index> cell) {
  Vector3 sum{};
  Vector3 before = points[cell[0]];
  Vector3 corner = points[cell[1]];
  for (std::size_t i = 0; i < cell.size(); ++i) {
    const Vector3 after = points[cell[i + 2 < cell.size() ? i + 2 : i + 2 - cell.size()]];
    sum += cornerProduct(before, corner, after);
    before = corner;
    corner = after;
  }
  return sum;
}

template <class Points, class Index>
Vector3 polygonProduct(const Points& points, std::span<const Index> cell, PolygonNormal kind) {
  if (cell.size() == 3) {
    return triangleProduct(points, cell[0], cell[1], cell[2]);
  }
  return kind == PolygonNormal::OF_CORNERS ? cornerProducts(points, cell) : areaProduct(points, cell);
}

template <class Index>
void addAt(Index point, const Normal& normal, const NormalSums& sums) {
  float* const sum = sums.vectors.data() + 3 * static_cast<std::size_t>(point);
  for (std::size_t axis = 0; axis < 3; ++axis) {
    sum[axis] += normal[axis];
  }
  ++sums.counts[static_cast<std::size_t>(point)];
}

/// The points of all polygons if they are triangles with 32-bit indices, as most are;
/// otherwise empty.
std::span<const std::int32_t> cornersOfTriangles(vtkCellArray& polys) {
  // Every polygon has at least three points, so that none has more.
  const vtkIdType count = polys.GetNumberOfConnectivityIds();
  if (polys.IsStorage64Bit() || count != 3 * polys.GetNumberOfCells()) {
    return {};
  }
  return {polys.GetConnectivityArray32()->GetPointer(0), static_cast<std::size_t>(count)};
}

template <class Points>
void sumOfPolygons(vtkCellArray& polys, const Points& points, PolygonNormal kind, const NormalSums& sums) {
  forEachCell(polys, [&](auto cell) {
    const Normal normal = unit(polygonProduct(points, cell, kind));
    for (const auto point : cell) {
      addAt(point, normal, sums);
    }
  });
}

template <class Points>
void sumAtPoints(vtkPolyData& mesh, const Points& points, PolygonNormal kind, const NormalSums& sums) {
  if constexpr (std::is_same_v<Points, PointSpan<float>>) {
    const auto corners = cornersOfTriangles(*mesh.GetPolys());
    addTriangleNormals(points.values(), corners, sums);
    if (corners.empty()) {
      sumOfPolygons(*mesh.GetPolys(), points, kind, sums);
    }
  } else {
    sumOfPolygons(*mesh.GetPolys(), points, kind, sums);
  }
  forEachCell(*mesh.GetStrips(), [&](auto strip) {
    forEachTriangle(strip, [&](auto p0, auto p1, auto p2) {
      const Normal normal = unit(triangleProduct(points, p0, p1, p2));
      for (const auto point : {p0, p1, p2}) {
        addAt(point, normal, sums);
      }
    });
  });
}

template <class Points>
void sumAtPoints(const FaceList& faces, const Points& points, PolygonNormal kind, const NormalSums& sums) {
  for (std::size_t i = 0; i < faces.size(); ++i) {
    const auto face = faces[i];
    const Normal normal = unit(polygonProduct(points, face, kind));
    for (const std::uint32_t point : face) {
      addAt(point, normal, sums);
    }
  }
}

/// The sum of N unit vectors of the same direction has the length N; each that has the
/// opposite direction shortens it by two. Sums are shorter by more than this where faces
/// are not consistently wound, and at edges of a right angle or sharper.
constexpr double LEAST_LOSS = 0.5;

/// Makes unit vectors of the sums.
/// @return the points whose sums are too short
PointMarks normalize(const NormalSums& sums) {
  PointMarks tooShort;
  for (std::size_t i = 0; i < sums.counts.size(); ++i) {
    float* const vector = &sums.vectors[3 * i];
    const float squares = vector[0] * vector[0] + vector[1] * vector[1] + vector[2] * vector[2];
    const double norm = std::sqrt(double{squares});
    if (norm != 0.0) {
      for (std::size_t axis = 0; axis < 3; ++axis) {
        vector[axis] = static_cast<float>(vector[axis] / norm);
      }
    }
    if (sums.counts[i] - norm > LEAST_LOSS) {
      tooShort.resize(sums.counts.size());
      tooShort[i] = true;
    }
  }
  return tooShort;
}

/// The area-weighted sum of the normals of a strip's triangles, as far as they are
/// finite.
template <class Points, class Index>
Vector3 stripProduct(const Points& points, std::span<const Index> strip) {
  Vector3 sum{};
  forEachTriangle(strip, [&](Index p0, Index p1, Index p2) {
    const Vector3 direction = triangleProduct(points, p0, p1, p2);
    if (std::isfinite(length(direction))) {
      sum += direction;
    }
  });
  return sum;
}

/// Writes normals one after the other. The array must outlive it.
auto writerTo(vtkFloatArray& normals) {
  return [next = normals.GetPointer(0)](const Normal& normal) mutable {
    next = std::copy(normal.begin(), normal.end(), next);
  };
}

template <class Points>
void writePerCell(vtkPolyData& mesh, const Points& points, PolygonNormal kind, vtkFloatArray& normals) {
  auto write = writerTo(normals);
  for (vtkIdType i = 0; i < mesh.GetNumberOfVerts() + mesh.GetNumberOfLines(); ++i) {
    write(NO_NORMAL);
  }
  forEachCell(*mesh.GetPolys(), [&](auto cell) { write(unit(polygonProduct(points, cell, kind))); });
  forEachCell(*mesh.GetStrips(), [&](auto strip) { write(unit(stripProduct(points, strip))); });
}

/// An array of zero vectors.
vtkSmartPointer<vtkFloatArray> newNormals(vtkIdType count) {
  auto normals = vtkSmartPointer<vtkFloatArray>::New();
  normals->SetName(NORMALS);
  normals->SetNumberOfComponents(3);
  allocateTuples(*normals, count);
  normals->FillValue(0.0F);
  return normals;
}

std::span<float> valuesOf(vtkFloatArray& array) {
  return {array.GetPointer(0), static_cast<std::size_t>(array.GetNumberOfValues())};
}

/// Sums the normals of faces, as often as asked.
class FaceNormals {
 public:
  explicit FaceNormals(vtkPolyData& mesh) : _mesh(mesh) {}

  vtkSmartPointer<vtkFloatArray> sumAtPoints(PolygonNormal kind) {
    auto normals = newNormals(_mesh.GetNumberOfPoints());
    std::vector<std::uint32_t> counts(static_cast<std::size_t>(_mesh.GetNumberOfPoints()));
    const NormalSums sums{valuesOf(*normals), counts};
    const PointReader reader(*_mesh.GetPoints()->GetData());
    reader.visit([&](const auto& points) { vemo::sumAtPoints(_mesh, points, kind, sums); });
    if (!isConsistentlyWound(_mesh, normalize(sums), counts)) {
      const FaceList& faces = consistentFaces();
      normals->FillValue(0.0F);
      reader.visit([&](const auto& points) { vemo::sumAtPoints(faces, points, kind, sums); });
      normalize(sums);
    }
    return normals;
  }

 private:
  const FaceList& consistentFaces() {
    if (!_faces) {
      _faces.emplace(_mesh).makeConsistent();
    }
    return *_faces;
  }

  vtkPolyData& _mesh;
  std::optional<FaceList> _faces;
};

vtkSmartPointer<vtkFloatArray> computeCellNormals(vtkPolyData& mesh, PolygonNormal kind) {
  auto normals = newNormals(mesh.GetNumberOfCells());
  PointReader(*mesh.GetPoints()->GetData()).visit([&](const auto& points) {
    writePerCell(mesh, points, kind, *normals);
  });
  return normals;
}

/// Whether the normal that the corners give a polygon says little of where it faces.
template <class Points, class Index>
bool isMisjudged(const Points& points, std::span<const Index> polygon) {
  // Those of fewer corners are the same, but for rounding.
  constexpr std::size_t LEAST_CORNERS = 5;
  constexpr double LEAST_COSINE = 0.9;
  if (polygon.size() < LEAST_CORNERS) {
    return false;
  }
  const auto byArea = unitVector(areaProduct(points, polygon));
  const auto byCorners = unitVector(cornerProducts(points, polygon));
  return byArea && (!byCorners || dot(*byArea, *byCorners) < LEAST_COSINE);
}

}  // namespace

vtkSmartPointer<vtkFloatArray> pointNormals(vtkPolyData& mesh) {
  return FaceNormals(mesh).sumAtPoints(PolygonNormal::OF_CORNERS);
}

PointNormals bothPointNormals(vtkPolyData& mesh) {
  FaceNormals faces(mesh);
  return {faces.sumAtPoints(PolygonNormal::OF_CORNERS), faces.sumAtPoints(PolygonNormal::OF_AREA)};
}

vtkSmartPointer<vtkFloatArray> cellNormals(vtkPolyData& mesh) {
  return computeCellNormals(mesh, PolygonNormal::OF_CORNERS);
}

vtkSmartPointer<vtkFloatArray> cellNormalsByArea(vtkPolyData& mesh) {
  return computeCellNormals(mesh, PolygonNormal::OF_AREA);
}

vtkSmartPointer<vtkFloatArray> faceNormalsByArea(vtkPolyData& mesh) {
  auto normals = newNormals(mesh.GetNumberOfPolys() + countTriangles(*mesh.GetStrips()));
  PointReader(*mesh.GetPoints()->GetData()).visit([&](const auto& points) {
    auto write = writerTo(*normals);
    forEachFace(mesh, [&](auto face) { write(unit(polygonProduct(points, face, PolygonNormal::OF_AREA))); });
  });
  return normals;
}

std::vector<vtkIdType> findMisjudgedPolygons(vtkPolyData& mesh) {
  std::vector<vtkIdType> found;
  PointReader(*mesh.GetPoints()->GetData()).visit([&](const auto& points) {
    forEachCell(*mesh.GetPolys(), [&, number = vtkIdType(0)](auto polygon) mutable {
      if (isMisjudged(points, polygon)) {
        found.push_back(number);
      }
      ++number;
    });
  });
  return found;
}

}  // namespace vemo
