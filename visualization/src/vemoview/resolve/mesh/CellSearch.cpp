#include "vemoview/resolve/mesh/CellSearch.h"

#include "geometry/Cells.h"
#include "geometry/Points.h"
#include "geometry/drawing/ContourEdges.h"
#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/resolve/UsualPicture.h>

#include <vtkCellArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

namespace vemo {

namespace {

/// More take too long; what has so many cells rarely has none that is shown.
constexpr long MAX_SEARCHED = 5'000'000;

double pixelsBeyond(const Appearance& appearance) {
  if (appearance.kind == Appearance::Kind::POINTS) {
    return appearance.isPointSizeInModelUnits ? MAX_PIXELS : appearance.pointSize;
  }
  return isOfFaces(appearance) ? 0.0 : appearance.lineWidth;
}

/// Searches an instance of a mesh.
class InstanceSearch {
 public:
  /// @param searchedCount counts the shapes
  InstanceSearch(vtkPolyData& geometry, const InstanceTransform* transform, ShownShapes& shapes,
                 long& searchedCount)
      : _geometry(geometry),
        _points(*geometry.GetPoints()->GetData()),
        _transform(transform),
        _shapes(shapes),
        _searchedCount(searchedCount) {}

  bool findsShown(const Appearance& appearance) {
    switch (appearance.kind) {
      case Appearance::Kind::POINTS:
        return findsPoint();
      case Appearance::Kind::LINES:
        return findsLine(*_geometry.GetLines());
      case Appearance::Kind::SURFACE:
        break;
    }
    return (appearance.hasFaces && findsFace()) ||
           (appearance.hasEdges && (findsLine(*_geometry.GetPolys()) || findsLine(*_geometry.GetStrips()))) ||
           (appearance.hasContour && findsContour());
  }

 private:
  bool findsPoint() {
    return anyCell(*_geometry.GetVerts(), 0, [this](const Corners& corners, vtkIdType i) {
      return _shapes.showsPoint(at(corners[i]));
    });
  }

  bool findsLine(vtkCellArray& cells) {
    return anyCell(cells, 1, [this](const Corners& corners, vtkIdType i) {
      return _shapes.showsLine(at(corners[i - 1]), at(corners[i]));
    });
  }

  bool findsFace() {
    return findsTriangle(*_geometry.GetPolys(), [](vtkIdType /*last*/) { return 0; }) ||
           findsTriangle(*_geometry.GetStrips(), [](vtkIdType last) { return last - 2; });
  }

  /// @param first returns the first corner of the triangle that ends at the given one
  template <class First>
  bool findsTriangle(vtkCellArray& cells, const First& first) {
    return anyCell(cells, 2, [&](const Corners& corners, vtkIdType i) {
      return _shapes.showsFace({at(corners[first(i)]), at(corners[i - 1]), at(corners[i])});
    });
  }

  bool findsContour() {
    const auto contour = contourEdges(_geometry, CONTOUR_BEND_DEGREES);
    return contour->GetNumberOfCells() > 0 &&
           InstanceSearch(*contour, _transform, _shapes, _searchedCount).findsLine(*contour->GetLines());
  }

  Vector3 at(vtkIdType point) const { return transformedPoint(_transform, _points[point]); }

  /// Whether isShown(corners, i) is true for a corner of a cell, from a number on.
  template <class IsShown>
  bool anyCell(vtkCellArray& cells, vtkIdType first, const IsShown& isShown) {
    const CellReader reader(cells);
    for (vtkIdType cell = 0; cell < reader.size(); ++cell) {
      const Corners corners = reader[cell];
      for (vtkIdType i = first; i < corners.size(); ++i) {
        if (++_searchedCount > MAX_SEARCHED || isShown(corners, i)) {
          return true;
        }
      }
    }
    return false;
  }

  vtkPolyData& _geometry;
  PointReader _points;
  const InstanceTransform* _transform;
  ShownShapes& _shapes;
  long& _searchedCount;
};

}  // namespace

bool isOfFaces(const Appearance& appearance) {
  return appearance.kind == Appearance::Kind::SURFACE && !appearance.hasEdges && !appearance.hasContour;
}

PictureReach reachOf(const Appearance& appearance) {
  return PictureReach::onAllSides(pixelsBeyond(appearance) / USUAL_HEIGHT);
}

bool CellSearch::finds(const MeshInstance& mesh) {
  const Appearance& appearance = mesh.appearance;
  ShownShapes shapes(_canvas, appearance.isClipped ? _clipPlanes : std::span<const ClipPlane>(),
                     reachOf(appearance));
  bool isFound = false;
  forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
    isFound =
        isFound || InstanceSearch(*mesh.geometry, transform, shapes, _searchedCount).findsShown(appearance);
  });
  return isFound;
}

}  // namespace vemo
