#include "vemoview/resolve/pick/CellPicker.h"

#include "geometry/Bounds.h"
#include <vemo/resolve/MeshInstance.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkMatrix4x4.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <cmath>

namespace vemo {

namespace {

/// How far beside a line or a point a pick still hits it, in pixels.
constexpr double TOLERANCE = 5.0;

/// No length grows by a greater factor.
double greatestStretch(const InstanceTransform* transform) {
  if (transform == nullptr) {
    return 1.0;
  }
  double squares = 0.0;
  for (const std::size_t row : {0U, 1U, 2U}) {
    for (const std::size_t column : {0U, 1U, 2U}) {
      const double value = (*transform)[4 * row + column];
      squares += value * value;
    }
  }
  return std::sqrt(squares);
}

}  // namespace

CellPicker::CellPicker(const PickRay& ray, const RayInterval& interval, const MeshInstance& mesh,
                       const InstanceTransform* transform, double rankToBeat)
    : _ray(ray),
      _interval(interval),
      _mesh(mesh),
      _transform(transform),
      _points(*mesh.node->getPoints()),
      _origin(ray.origin),
      _direction(ray.direction),
      _rankToBeat(rankToBeat) {
  if (transform != nullptr) {
    InstanceTransform inverse{};
    vtkMatrix4x4::Invert(transform->data(), inverse.data());
    _origin = transformedPoint(&inverse, ray.origin);
    _direction = transformedPoint(&inverse, ray.origin + ray.direction) - _origin;
  }
}

std::optional<CellPicker::Hit> CellPicker::run() {
  if (!isNear()) {
    return std::nullopt;
  }
  const lum::PolyDataNode& node = *_mesh.node;
  const Appearance& appearance = _mesh.appearance;
  if (appearance.kind == Appearance::Kind::POINTS) {
    // A node's points may be spread over several meshes.
    testCells(_mesh.geometry->GetVerts(), &CellPicker::testVertices);
    if (_best) {
      _best->cell = vertexOf(_best->point);
    }
    return _best;
  }
  skipCells(node.getVerts());
  if (appearance.kind == Appearance::Kind::LINES) {
    testCells(node.getLines(), &CellPicker::testLine);
    return _best;
  }
  skipCells(node.getLines());
  if (appearance.hasFaces) {
    testCells(node.getPolys(), &CellPicker::testPolygon);
    testCells(node.getStrips(), &CellPicker::testStrip);
  } else if (appearance.hasEdges || appearance.hasContour) {
    testCells(node.getPolys(), &CellPicker::testOutline);
    testCells(node.getStrips(), &CellPicker::testStripEdges);
  }
  return _best;
}

Vector3 CellPicker::positionOf(vtkIdType point) const {
  return transformedPoint(_transform, _points[point]);
}

/// Whether a ball around all points can hold a position with a low enough rank.
bool CellPicker::isNear() const {
  const Box box = boundsOf(*_mesh.geometry);
  const Vector3 center = transformedPoint(_transform, box.center());
  const double radius = 0.5 * length(box.high - box.low) * greatestStretch(_transform);
  const double distance = dot(center - _ray.origin, _ray.direction);
  const double furthest = distance + radius;
  const double tolerance = toleranceAt(furthest);
  return length(center - _ray.at(distance)) <= radius + tolerance &&
         furthest + tolerance >= _interval.first &&
         distance - radius - tolerance <= std::min(_interval.last, _rankToBeat);
}

/// How far beside the ray a line or a point is still hit.
double CellPicker::toleranceAt(double distance) const {
  const Appearance& appearance = _mesh.appearance;
  const double pixel = _ray.pixelSize(distance);
  const bool isPoint = appearance.kind == Appearance::Kind::POINTS;
  const double size = (isPoint ? appearance.pointSize : appearance.lineWidth) *
                      (appearance.isPointSizeInModelUnits ? 1.0 : pixel);
  return std::max(TOLERANCE * pixel, 0.5 * std::min(size, MAX_POINT_PIXELS * pixel));
}

void CellPicker::testCells(vtkCellArray* cells, Test test) {
  if (cells == nullptr) {
    return;
  }
  const CellReader reader(*cells);
  for (vtkIdType cell = 0; cell < reader.size(); ++cell) {
    _cell = _cellsBefore + cell;
    (this->*test)(reader[cell]);
  }
  _cellsBefore += reader.size();
}

void CellPicker::skipCells(const vtkCellArray* cells) {
  _cellsBefore += cells != nullptr ? cells->GetNumberOfCells() : 0;
}

/// The first of the node's vertices that uses a point; below 0 for none.
vtkIdType CellPicker::vertexOf(vtkIdType point) const {
  if (_mesh.node->getVerts() == nullptr) {
    return -1;
  }
  const CellReader vertices(*_mesh.node->getVerts());
  for (vtkIdType cell = 0; cell < vertices.size(); ++cell) {
    const Corners corners = vertices[cell];
    for (vtkIdType i = 0; i < corners.size(); ++i) {
      if (corners[i] == point) {
        return cell;
      }
    }
  }
  return -1;
}

void CellPicker::testVertices(const Corners& corners) {
  for (vtkIdType i = 0; i < corners.size(); ++i) {
    testPoint(_mesh.pointNumbers != nullptr ? _mesh.pointNumbers->GetId(corners[i]) : corners[i]);
  }
}

void CellPicker::testLine(const Corners& corners) {
  for (vtkIdType i = 1; i < corners.size(); ++i) {
    testSegment(corners[i - 1], corners[i]);
  }
}

void CellPicker::testOutline(const Corners& corners) {
  testLine(corners);
  if (corners.size() > 0) {
    testSegment(corners[corners.size() - 1], corners[0]);
  }
}

/// Of the triangles that all begin at the first corner, those that go round the
/// other way cover what lies outside a polygon that is not convex.
void CellPicker::testPolygon(const Corners& corners) {
  int winding = 0;
  double distance = 0.0;
  for (vtkIdType i = 2; i < corners.size(); ++i) {
    const Crossing crossing = meet(corners[0], corners[i - 1], corners[i]);
    winding += crossing.side;
    distance = crossing.side != 0 ? crossing.distance : distance;
  }
  if (winding != 0) {
    offerFace(distance, corners, 0, corners.size());
  }
}

void CellPicker::testStrip(const Corners& corners) {
  for (vtkIdType i = 2; i < corners.size(); ++i) {
    const Crossing crossing = meet(corners[i - 2], corners[i - 1], corners[i]);
    if (crossing.side != 0) {
      offerFace(crossing.distance, corners, i - 2, 3);
    }
  }
}

void CellPicker::testStripEdges(const Corners& corners) {
  testLine(corners);
  for (vtkIdType i = 2; i < corners.size(); ++i) {
    testSegment(corners[i - 2], corners[i]);
  }
}

void CellPicker::testPoint(vtkIdType point) {
  const Vector3 position = positionOf(point);
  offerBeside(dot(position - _ray.origin, _ray.direction), position, point);
}

void CellPicker::testSegment(vtkIdType from, vtkIdType to) {
  const Vector3 start = positionOf(from);
  const Vector3 edge = positionOf(to) - start;
  const Vector3 away = start - _ray.origin;
  // Of the segment, seen along the pick ray: its square, and how far along
  // it the pick ray passes.
  const double along = dot(edge, _ray.direction);
  const double square = dot(edge, edge) - along * along;
  const double passed = dot(away, _ray.direction) * along - dot(away, edge);
  const double share = square > 0.0 ? std::clamp(passed / square, 0.0, 1.0) : 0.0;
  const Vector3 position = start + share * edge;
  offerBeside(dot(position - _ray.origin, _ray.direction), position, share < 0.5 ? from : to);
}

/// T. Möller, B. Trumbore: Fast, minimum storage ray/triangle intersection,
/// Journal of Graphics Tools 2 (1997).
CellPicker::Crossing CellPicker::meet(vtkIdType a, vtkIdType b, vtkIdType c) const {
  // No ray gets through between two triangles that share an edge.
  constexpr double OVERLAP = 1e-12;
  const Vector3 corner = _points[a];
  const Vector3 first = _points[b] - corner;
  const Vector3 second = _points[c] - corner;
  const Vector3 across = cross(_direction, second);
  const double determinant = dot(first, across);
  const Vector3 beside = _origin - corner;
  const double u = dot(beside, across) / determinant;
  const Vector3 turned = cross(beside, first);
  const double v = dot(_direction, turned) / determinant;
  // Also false for NaN.
  if (!(u >= -OVERLAP && v >= -OVERLAP && u + v <= 1.0 + OVERLAP)) {
    return {};
  }
  return {dot(second, turned) / determinant, determinant > 0.0 ? 1 : -1};
}

void CellPicker::offerFace(double distance, const Corners& corners, vtkIdType firstCorner, vtkIdType count) {
  if (!(distance <= _rankToBeat)) {
    return;
  }
  const Vector3 position = _ray.at(distance);
  vtkIdType nearest = corners[firstCorner];
  for (vtkIdType i = 0; i < count; ++i) {
    const vtkIdType point = corners[firstCorner + i];
    if (!isFinite(_points[point])) {
      // Such a face is not drawn.
      return;
    }
    if (length(positionOf(point) - position) < length(positionOf(nearest) - position)) {
      nearest = point;
    }
  }
  offer(distance, distance, nearest);
}

void CellPicker::offerBeside(double distance, const Vector3& position, vtkIdType point) {
  const double beside = length(position - _ray.at(distance));
  const double tolerance = toleranceAt(distance);
  if (beside <= tolerance) {
    offer(distance, distance + beside - tolerance, point);
  }
}

void CellPicker::offer(double distance, double rank, vtkIdType point) {
  // Of those that are equally near the last is seen.
  if (rank <= _rankToBeat && distance >= _interval.first && distance <= _interval.last &&
      std::isfinite(distance)) {
    _rankToBeat = rank;
    _best = Hit{distance, rank, _cell, point};
  }
}

}  // namespace vemo
