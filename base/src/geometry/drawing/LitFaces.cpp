#include "geometry/drawing/LitFaces.h"

#include "geometry/Bounds.h"
#include "geometry/Cells.h"
#include "geometry/Points.h"

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <vector>

namespace vemo {

namespace {

/// The points with normals of zero; empty if there are none.
template <class Points>
PointMarks markZeros(const Points& normals) {
  PointMarks marks;
  for (vtkIdType i = 0; i < normals.size(); ++i) {
    if (normals[i] == Vector3{}) {
      marks.resize(static_cast<std::size_t>(normals.size()));
      marks[static_cast<std::size_t>(i)] = true;
    }
  }
  return marks;
}

/// A vector along the normal that the winding gives a face.
template <class Points, class Index>
Vector3 windingNormal(const Points& points, std::span<const Index> face) {
  const Vector3 origin = points[face[0]];
  Vector3 sum;
  for (std::size_t i = 2; i < face.size(); ++i) {
    sum += cross(points[face[i - 1]] - origin, points[face[i]] - origin);
  }
  return sum;
}

/// The given normals if none of the points of faces has a normal of zero.
vtkSmartPointer<vtkDataArray> withoutZeros(vtkPolyData& mesh, vtkDataArray& normals) {
  vtkSmartPointer<vtkDataArray> result = &normals;
  PointMarks zeros;
  PointReader(normals).visit([&](const auto& vectors) { zeros = markZeros(vectors); });
  if (zeros.empty()) {
    return result;
  }
  const PointReader points(*mesh.GetPoints()->GetData());
  forEachFace(mesh, [&]<class Index>(std::span<const Index> face) {
    const auto isZero = [&](Index point) { return zeros[static_cast<std::size_t>(point)]; };
    const auto normal =
        std::ranges::any_of(face, isZero) ? unitVector(windingNormal(points, face)) : std::nullopt;
    if (!normal) {
      return;
    }
    if (result == &normals) {
      result = vtk::TakeSmartPointer(normals.NewInstance());
      result->DeepCopy(&normals);
    }
    for (const Index point : face) {
      if (isZero(point)) {
        result->SetTuple(point, normal->data());
        zeros[static_cast<std::size_t>(point)] = false;
      }
    }
  });
  return result;
}

/// Whether the winding of a polygon contradicts the normals of its points.
template <class Points, class Normals, class Index>
bool isContradicting(std::span<const Index> polygon, const Points& points, const Normals& normals) {
  const Vector3 winding = windingNormal(points, polygon);
  // Most polygons agree with the first normal already: this halves the time.
  if (dot(winding, normals[polygon[0]]) > 0.0) {
    return false;
  }
  Vector3 sum;
  for (const Index point : polygon) {
    sum += normals[point];
  }
  return dot(winding, sum) < 0.0;
}

/// The numbers of such polygons.
template <class Points, class Normals>
std::vector<vtkIdType> findContradicting(vtkCellArray& polygons, const Points& points,
                                         const Normals& normals) {
  std::vector<vtkIdType> found;
  forEachCell(polygons, [&, number = vtkIdType(0)](auto polygon) mutable {
    if (isContradicting(polygon, points, normals)) {
      found.push_back(number);
    }
    ++number;
  });
  return found;
}

std::vector<vtkIdType> findContradicting(vtkPolyData& mesh, vtkDataArray& normals) {
  std::vector<vtkIdType> found;
  PointReader(*mesh.GetPoints()->GetData()).visit([&](const auto& points) {
    PointReader(normals).visit(
        [&](const auto& vectors) { found = findContradicting(*mesh.GetPolys(), points, vectors); });
  });
  return found;
}

vtkSmartPointer<vtkCellArray> reversed(vtkCellArray& polygons, const std::vector<vtkIdType>& numbers) {
  auto result = vtkSmartPointer<vtkCellArray>::New();
  result->DeepCopy(&polygons);
  for (const vtkIdType number : numbers) {
    result->ReverseCellAtId(number);
  }
  return result;
}

}  // namespace

void lightBothSides(vtkSmartPointer<vtkPolyData>& faces) {
  vtkDataArray* const given = faces->GetPointData()->GetNormals();
  if (given == nullptr) {
    return;
  }
  const auto normals = withoutZeros(*faces, *given);
  const auto contradicting = findContradicting(*faces, *normals);
  if (normals == given && contradicting.empty()) {
    return;
  }
  auto copy = vtkSmartPointer<vtkPolyData>::New();
  copy->ShallowCopy(faces);
  copy->GetPointData()->SetNormals(normals);
  if (!contradicting.empty()) {
    copy->SetPolys(reversed(*faces->GetPolys(), contradicting));
  }
  faces = copy;
}

}  // namespace vemo
