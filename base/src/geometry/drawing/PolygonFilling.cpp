#include "geometry/drawing/PolygonFilling.h"

#include "geometry/Cells.h"
#include "geometry/NewArray.h"
#include "geometry/Points.h"
#include "geometry/PolygonArea.h"
#include "geometry/data/SharedData.h"
#include "geometry/drawing/EarClipping.h"
#include "geometry/drawing/SelectedData.h"
#include <vemo/base/Vector.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkIdList.h>
#include <vtkNew.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>

namespace vemo {

namespace {

/// The corners in a coordinate plane that is not perpendicular to the polygon, counter-clockwise.
template <class Index>
std::vector<Vector<2, double>> flatten(std::span<const Index> polygon, const PointReader& points) {
  const Vector3 area = areaProduct(points, polygon);
  const auto isSmaller = [](double a, double b) { return std::abs(a) < std::abs(b); };
  const auto axis = static_cast<std::size_t>(std::ranges::max_element(area, isSmaller) - area.begin());
  std::size_t x = (axis + 1) % 3;
  std::size_t y = (axis + 2) % 3;
  if (area[axis] < 0.0) {
    std::swap(x, y);
  }
  std::vector<Vector<2, double>> corners;
  corners.reserve(polygon.size());
  for (const Index point : polygon) {
    const Vector3 place = points[point];
    corners.push_back({place[x], place[y]});
  }
  return corners;
}

/// As VTK draws a polygon.
std::vector<Triangle> fan(std::size_t corners) {
  std::vector<Triangle> triangles;
  for (std::size_t i = 2; i < corners; ++i) {
    triangles.push_back({0, i - 1, i});
  }
  return triangles;
}

/// @param failures counts a polygon whose triangles do not cover what it surrounds
template <class Index>
std::vector<Triangle> fill(std::span<const Index> polygon, const PointReader& points, vtkIdType& failures) {
  if (auto triangles = clipEars(flatten(polygon, points))) {
    return std::move(*triangles);
  }
  ++failures;
  return fan(polygon.size());
}

/// Collects faces, and the numbers of the cells that they come from.
class FilledFaces {
 public:
  /// @param faces of which polygons are to be filled
  FilledFaces(vtkPolyData& faces, const std::vector<vtkIdType>& polygons) {
    vtkCellArray& polys = *faces.GetPolys();
    if (!polys.IsStorage64Bit()) {
      _faces->Use32BitStorage();
    }
    // Each triangle beyond the first one adds a corner, and shares two.
    const CellReader reader(polys);
    vtkIdType added = 0;
    for (const vtkIdType polygon : polygons) {
      added += reader[polygon].size() - 3;
    }
    allocateCells(*_faces, polys.GetNumberOfCells() + added, polys.GetNumberOfConnectivityIds() + 2 * added);
    _sources->Allocate(faces.GetNumberOfCells() + added);
  }

  template <class Corners>
  void add(vtkIdType source, const Corners& corners) {
    _faces->InsertNextCell(static_cast<int>(corners.size()));
    for (const auto corner : corners) {
      _faces->InsertCellPoint(static_cast<vtkIdType>(corner));
    }
    addSource(source);
  }

  void addSource(vtkIdType source) { _sources->InsertNextId(source); }

  vtkCellArray* faces() { return _faces; }
  vtkIdList& sources() { return *_sources; }

 private:
  vtkNew<vtkCellArray> _faces;
  vtkNew<vtkIdList> _sources;
};

/// Each polygon becomes many triangles, and an array may have any number of components.
void selectDrawnData(vtkCellData& from, const char* colors, vtkIdList& sources, vtkCellData& to) {
  vtkDataArray* const normals = from.GetNormals();
  if (normals != nullptr) {
    to.SetNormals(selectTuples(*normals, sources));
  }
  vtkDataArray* const values = from.GetArray(colors);
  if (values != nullptr && values != normals) {
    to.AddArray(selectFirstComponent(*values, sources));
  }
}

}  // namespace

PolygonFilling fillPolygons(vtkPolyData& geometry, const std::vector<vtkIdType>& polygons,
                            const char* colors) {
  PolygonFilling filling;
  if (polygons.empty()) {
    return filling;
  }
  FilledFaces list(geometry, polygons);
  const vtkIdType first = geometry.GetNumberOfVerts() + geometry.GetNumberOfLines();
  vtkIdType number = 0;
  for (; number < first; ++number) {
    list.addSource(number);
  }
  const PointReader points(*geometry.GetPoints()->GetData());
  forEachCell(*geometry.GetPolys(), [&, next = polygons.begin()](auto polygon) mutable {
    if (next == polygons.end() || first + *next != number) {
      list.add(number, polygon);
    } else {
      for (const auto& [a, b, c] : fill(polygon, points, filling.failures)) {
        list.add(number, std::array{polygon[a], polygon[b], polygon[c]});
      }
      ++next;
    }
    ++number;
  });
  for (; number < geometry.GetNumberOfCells(); ++number) {
    list.addSource(number);
  }
  filling.geometry = shallowCopy(geometry);
  filling.geometry->SetPolys(list.faces());
  filling.geometry->GetCellData()->Initialize();
  selectDrawnData(*geometry.GetCellData(), colors, list.sources(), *filling.geometry->GetCellData());
  return filling;
}

}  // namespace vemo
