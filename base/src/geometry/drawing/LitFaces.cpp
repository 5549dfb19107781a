#include "geometry/drawing/LitFaces.h"

#include "geometry/Bounds.h"
#include "geometry/Cells.h"
#include "geometry/Points.h"
#include "geometry/PolygonArea.h"
#include "geometry/data/SharedData.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace vemo {

namespace {

/// Whether the square of its length is a number in single precision, with which OpenGL computes.
bool canLight(const Vector3& normal) {
  constexpr double LEAST = 1e-30;
  constexpr double MOST = 1e30;
  const double square = dot(normal, normal);
  return square >= LEAST && square <= MOST;
}

/// The points with normals that cannot light; empty if there are none.
template <class Points>
PointMarks markUnlit(const Points& normals) {
  PointMarks marks;
  for (vtkIdType i = 0; i < normals.size(); ++i) {
    if (!canLight(normals[i])) {
      marks.resize(static_cast<std::size_t>(normals.size()));
      marks[static_cast<std::size_t>(i)] = true;
    }
  }
  return marks;
}

/// The unit normal of a face: where parts that cross cancel each other, that of the first triangle
/// it is drawn as that has an area.
template <class Points, class Index>
std::optional<Vector3> faceNormal(const Points& points, std::span<const Index> face) {
  auto normal = unitVector(areaProduct(points, face));
  for (std::size_t i = 2; !normal && i < face.size(); ++i) {
    normal =
        unitVector(areaProduct(points, std::span<const Index>(std::array{face[0], face[i - 1], face[i]})));
  }
  return normal;
}

/// The given normals if those of all points of faces can light.
vtkSmartPointer<vtkDataArray> withoutUnlit(vtkPolyData& mesh, vtkDataArray& normals) {
  vtkSmartPointer<vtkDataArray> result = &normals;
  PointMarks unlit;
  PointReader(normals).visit([&](const auto& vectors) { unlit = markUnlit(vectors); });
  if (unlit.empty()) {
    return result;
  }
  const PointReader points(*mesh.GetPoints()->GetData());
  const PointReader given(normals);
  forEachFace(mesh, [&]<class Index>(std::span<const Index> face) {
    const auto isUnlit = [&](Index point) { return unlit[static_cast<std::size_t>(point)]; };
    if (std::ranges::none_of(face, isUnlit)) {
      return;
    }
    const auto ofFace = faceNormal(points, face);
    for (const Index point : face) {
      const auto direction = isUnlit(point) ? unitVector(given[point]) : std::nullopt;
      if (!isUnlit(point) || (!direction && !ofFace)) {
        continue;
      }
      if (result == &normals) {
        result = vtk::TakeSmartPointer(normals.NewInstance());
        result->DeepCopy(&normals);
      }
      result->SetTuple(point, (direction ? *direction : *ofFace).data());
      unlit[static_cast<std::size_t>(point)] = false;
    }
  });
  return result;
}

/// Positive if the winding of a face agrees with the normals of its points, negative if it
/// contradicts them.
template <class Points, class Normals, class Index>
double agreement(std::span<const Index> face, const Points& points, const Normals& normals) {
  const Vector3 winding = areaProduct(points, face);
  // Most polygons agree with the first normal already: this halves the time.
  if (const double first = dot(winding, normals[face[0]]); first > 0.0) {
    return first;
  }
  Vector3 sum;
  for (const Index point : face) {
    sum += normals[point];
  }
  return dot(winding, sum);
}

/// The same of a strip: its triangles may face all ways.
template <class Points, class Normals, class Index>
double agreementOfStrip(std::span<const Index> strip, const Points& points, const Normals& normals) {
  double sum = 0.0;
  forEachTriangle(strip, [&](Index p0, Index p1, Index p2) {
    const std::array triangle{p0, p1, p2};
    sum += agreement(std::span<const Index>(triangle), points, normals);
  });
  return sum;
}

/// The numbers of the cells whose winding contradicts the normals of their points.
std::vector<vtkIdType> findContradicting(vtkCellArray& cells, bool areStrips, vtkPolyData& mesh,
                                         vtkDataArray& normals) {
  std::vector<vtkIdType> found;
  PointReader(*mesh.GetPoints()->GetData()).visit([&](const auto& points) {
    PointReader(normals).visit([&](const auto& vectors) {
      forEachCell(cells, [&, number = vtkIdType(0)](auto cell) mutable {
        if ((areStrips ? agreementOfStrip(cell, points, vectors) : agreement(cell, points, vectors)) < 0.0) {
          found.push_back(number);
        }
        ++number;
      });
    });
  });
  return found;
}

/// The first corner stays, at which the fan of a concave polygon begins.
vtkSmartPointer<vtkCellArray> reversedPolygons(vtkCellArray& polygons,
                                               const std::vector<vtkIdType>& numbers) {
  auto result = vtkSmartPointer<vtkCellArray>::New();
  result->DeepCopy(&polygons);
  result->Visit([&numbers](auto& storage) {
    const auto* const offsets = storage.GetOffsets()->GetPointer(0);
    auto* const indices = storage.GetConnectivity()->GetPointer(0);
    for (const vtkIdType number : numbers) {
      std::reverse(indices + offsets[number] + 1, indices + offsets[number + 1]);
    }
  });
  return result;
}

/// Another first triangle, without an area, turns all others of a strip over.
vtkSmartPointer<vtkCellArray> reversedStrips(vtkCellArray& strips, const std::vector<vtkIdType>& numbers) {
  auto result = vtkSmartPointer<vtkCellArray>::New();
  forEachCell(strips, [&, number = vtkIdType(0), next = numbers.begin()](auto strip) mutable {
    const bool isReversed = next != numbers.end() && *next == number;
    ++number;
    result->InsertNextCell(static_cast<int>(strip.size()) + (isReversed ? 1 : 0));
    if (isReversed) {
      result->InsertCellPoint(strip[0]);
      ++next;
    }
    for (const auto point : strip) {
      result->InsertCellPoint(point);
    }
  });
  return result;
}

/// A copy in which the normals of polygons agree with their winding; null if they do already.
vtkSmartPointer<vtkDataArray> litNormals(vtkPolyData& mesh, vtkDataArray& normals) {
  vtkSmartPointer<vtkDataArray> result;
  const auto replace = [&](vtkIdType number, const Vector3& normal) {
    if (result == nullptr) {
      result = vtk::TakeSmartPointer(normals.NewInstance());
      result->DeepCopy(&normals);
    }
    result->SetTuple(number, normal.data());
  };
  PointReader(*mesh.GetPoints()->GetData()).visit([&](const auto& points) {
    PointReader(normals).visit([&](const auto& vectors) {
      forEachCell(*mesh.GetPolys(),
                  [&, number = mesh.GetNumberOfVerts() + mesh.GetNumberOfLines()](auto face) mutable {
                    const Vector3 given = vectors[number];
                    if (!canLight(given)) {
                      replace(number, faceNormal(points, face).value_or(given));
                    } else if (dot(areaProduct(points, face), given) < 0.0) {
                      replace(number, Vector3{} - given);
                    }
                    ++number;
                  });
    });
  });
  return result;
}

void lightByCells(vtkSmartPointer<vtkPolyData>& faces, vtkDataArray& given) {
  if (const auto normals = litNormals(*faces, given)) {
    auto copy = shallowCopy(*faces);
    copy->GetCellData()->SetNormals(normals);
    faces = copy;
  }
}

void lightByPoints(vtkSmartPointer<vtkPolyData>& faces, vtkDataArray& given) {
  const auto normals = withoutUnlit(*faces, given);
  const auto polygons = findContradicting(*faces->GetPolys(), false, *faces, *normals);
  const auto strips = findContradicting(*faces->GetStrips(), true, *faces, *normals);
  if (normals == &given && polygons.empty() && strips.empty()) {
    return;
  }
  auto copy = shallowCopy(*faces);
  copy->GetPointData()->SetNormals(normals);
  if (!polygons.empty()) {
    copy->SetPolys(reversedPolygons(*faces->GetPolys(), polygons));
  }
  if (!strips.empty()) {
    copy->SetStrips(reversedStrips(*faces->GetStrips(), strips));
  }
  faces = copy;
}

}  // namespace

void lightBothSides(vtkSmartPointer<vtkPolyData>& faces) {
  if (vtkDataArray* const ofPoints = faces->GetPointData()->GetNormals()) {
    lightByPoints(faces, *ofPoints);
  } else if (vtkDataArray* const ofCells = faces->GetCellData()->GetNormals()) {
    lightByCells(faces, *ofCells);
  }
}

}  // namespace vemo
