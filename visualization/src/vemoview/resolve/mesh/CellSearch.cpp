#include "vemoview/resolve/mesh/CellSearch.h"

#include "geometry/Cells.h"
#include "geometry/Points.h"
#include "geometry/drawing/ContourEdges.h"

#include <vtkCellArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

#include <algorithm>

namespace vemo {

namespace {

/// More take seconds; what has so many cells rarely has none that is shown.
constexpr long MOST_STEPS = 10'000'000;

// The first corner of the triangle that ends at the given one.
vtkIdType firstOfPolygon(vtkIdType /*last*/) {
  return 0;
}
vtkIdType firstOfStrip(vtkIdType last) {
  return last - 2;
}

/// Searches the instances of a mesh.
class MeshSearch {
 public:
  explicit MeshSearch(const MeshInstance& mesh)
      : _appearance(mesh.appearance), _geometry(*mesh.geometry), _points(*_geometry.GetPoints()->GetData()) {}

  /// @param mostSteps after which it stops searching, and finds everything
  bool findsShown(const InstanceTransform* transform, ShownShapes& shapes, long mostSteps) {
    _transform = transform;
    _shapes = &shapes;
    _mostSteps = mostSteps;
    switch (_appearance.kind) {
      case Appearance::Kind::POINTS:
        return findsPoint();
      case Appearance::Kind::LINES:
        return findsLine(*_geometry.GetLines(), _points);
      case Appearance::Kind::SURFACE:
        break;
    }
    return (_appearance.hasFaces && findsFace()) || (_appearance.hasEdges && findsEdge()) ||
           (_appearance.hasContour && findsContour());
  }

 private:
  bool findsPoint() {
    return anyCell(*_geometry.GetVerts(), 0, [this](const Corners& corners, vtkIdType i) {
      return _shapes->showsPoint(at(_points, corners[i]));
    });
  }

  bool findsLine(vtkCellArray& cells, const PointReader& points) {
    return anyCell(cells, 1, [&](const Corners& corners, vtkIdType i) {
      return _shapes->showsLine(at(points, corners[i - 1]), at(points, corners[i]));
    });
  }

  bool findsEdge() {
    return findsLine(*_geometry.GetPolys(), _points) || findsLine(*_geometry.GetStrips(), _points);
  }

  bool findsFace() {
    return findsTriangle(*_geometry.GetPolys(), firstOfPolygon) ||
           findsTriangle(*_geometry.GetStrips(), firstOfStrip);
  }

  /// @param first returns the first corner of the triangle that ends at the given one
  template <class First>
  bool findsTriangle(vtkCellArray& cells, const First& first) {
    return anyCell(cells, 2, [&](const Corners& corners, vtkIdType i) {
      return _shapes->showsFace(
          {at(_points, corners[first(i)]), at(_points, corners[i - 1]), at(_points, corners[i])});
    });
  }

  bool findsContour() {
    if (_contour == nullptr) {
      _contour = contourEdges(_geometry, CONTOUR_BEND_DEGREES);
    }
    return findsLine(*_contour->GetLines(), PointReader(*_contour->GetPoints()->GetData()));
  }

  Vector3 at(const PointReader& points, vtkIdType point) const {
    return transformedPoint(_transform, points[point]);
  }

  /// Whether isShown(corners, i) is true for a corner of a cell, from a number on.
  template <class IsShown>
  bool anyCell(vtkCellArray& cells, vtkIdType first, const IsShown& isShown) {
    const CellReader reader(cells);
    for (vtkIdType cell = 0; cell < reader.size(); ++cell) {
      const Corners corners = reader[cell];
      for (vtkIdType i = first; i < corners.size(); ++i) {
        if (_shapes->stepCount() > _mostSteps || isShown(corners, i)) {
          return true;
        }
      }
    }
    return false;
  }

  const Appearance& _appearance;
  vtkPolyData& _geometry;
  PointReader _points;
  /// Null until it is needed: all instances have the same.
  vtkSmartPointer<vtkPolyData> _contour;
  const InstanceTransform* _transform = nullptr;
  ShownShapes* _shapes = nullptr;
  long _mostSteps = 0;
};

/// Wider than its coordinates are precise.
bool hasArea(const Vector3& a, const Vector3& b, const Vector3& c) {
  constexpr double PRECISION = 1e-6;
  const Vector3 sides[] = {b - a, c - a, c - b};
  const double longest = std::max({length(sides[0]), length(sides[1]), length(sides[2])});
  return length(cross(sides[0], sides[1])) > PRECISION * longest * longest;
}

/// @param first firstOfPolygon or firstOfStrip
template <class First>
bool hasArea(vtkCellArray& cells, const PointReader& points, const First& first) {
  const CellReader reader(cells);
  for (vtkIdType cell = 0; cell < reader.size(); ++cell) {
    const Corners corners = reader[cell];
    for (vtkIdType i = 2; i < corners.size(); ++i) {
      if (hasArea(points[corners[first(i)]], points[corners[i - 1]], points[corners[i]])) {
        return true;
      }
    }
  }
  return false;
}

bool hasArea(vtkPolyData& faces) {
  const PointReader points(*faces.GetPoints()->GetData());
  return hasArea(*faces.GetPolys(), points, firstOfPolygon) ||
         hasArea(*faces.GetStrips(), points, firstOfStrip);
}

}  // namespace

bool hasShapes(const MeshInstance& mesh) {
  const Appearance& appearance = mesh.appearance;
  if (appearance.kind != Appearance::Kind::SURFACE || appearance.hasEdges) {
    return true;
  }
  return (appearance.hasFaces && hasArea(*mesh.geometry)) ||
         (appearance.hasContour &&
          contourEdges(*mesh.geometry, CONTOUR_BEND_DEGREES)->GetNumberOfLines() > 0);
}

bool isOfFaces(const Appearance& appearance) {
  return appearance.kind == Appearance::Kind::SURFACE && !appearance.hasEdges && !appearance.hasContour;
}

bool CellSearch::isExhausted() const {
  return _stepCount > MOST_STEPS;
}

bool CellSearch::finds(const MeshInstance& mesh) {
  const auto planes = mesh.appearance.isClipped ? _clipPlanes : std::span<const ClipPlane>();
  MeshSearch search(mesh);
  bool isFound = false;
  forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
    if (!isFound) {
      ShownShapes shapes(_canvas, planes);
      isFound = search.findsShown(transform, shapes, MOST_STEPS - _stepCount);
      _stepCount += shapes.stepCount();
    }
  });
  return isFound;
}

}  // namespace vemo
