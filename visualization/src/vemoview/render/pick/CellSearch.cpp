#include "vemoview/render/pick/CellSearch.h"

#include "vemoview/render/resolve/Piece.h"
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkMatrix4x4.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace vemo {

namespace {

/// How far beside a line or a point it can still be pointed at, in pixels.
constexpr double REACH = 5.0;

/// No placement makes a length greater than this many times.
double greatestStretch(const double* placement) {
  if (placement == nullptr) {
    return 1.0;
  }
  double squares = 0.0;
  for (const int row : {0, 1, 2}) {
    for (const int column : {0, 1, 2}) {
      squares += placement[4 * row + column] * placement[4 * row + column];
    }
  }
  return std::sqrt(squares);
}

}  // namespace

CellSearch::CellSearch(const SightLine& line, const Span& span, const Piece& piece, const double* placement,
                       double rankToBeat)
    : _line(line),
      _span(span),
      _piece(piece),
      _placement(placement),
      _points(*piece.node->getPoints()),
      _origin(line.origin),
      _direction(line.direction),
      _rankToBeat(rankToBeat) {
  if (placement != nullptr) {
    std::array<double, 16> inverse{};
    vtkMatrix4x4::Invert(placement, inverse.data());
    _origin = placed(line.origin, inverse.data());
    _direction = placed(line.origin + line.direction, inverse.data()) - _origin;
  }
}

std::optional<CellSearch::Hit> CellSearch::run() {
  if (!isNear()) {
    return std::nullopt;
  }
  const lum::PolyDataNode& node = *_piece.node;
  const Appearance& look = _piece.appearance;
  if (look.kind == Appearance::Kind::POINTS) {
    // Of a node's points, each may be drawn by a piece of its own.
    lookAtCells(_piece.geometry->GetVerts(), &CellSearch::lookAtVertices);
    if (_best) {
      _best->cell = vertexOf(_best->point);
    }
    return _best;
  }
  lookAtCells(node.getVerts(), &CellSearch::lookAtVertices);
  lookAtCells(node.getLines(), &CellSearch::lookAtLine);
  if (look.kind != Appearance::Kind::SURFACE || look.hasFaces) {
    lookAtCells(node.getPolys(), &CellSearch::lookAtPolygon);
    lookAtCells(node.getStrips(), &CellSearch::lookAtStrip);
  } else if (look.hasEdges || look.hasContour) {
    lookAtCells(node.getPolys(), &CellSearch::lookAtOutline);
    lookAtCells(node.getStrips(), &CellSearch::lookAtStripEdges);
  }
  return _best;
}

Vector3 CellSearch::placeOf(vtkIdType point) const {
  return placed(_points[point], _placement);
}

/// Whether a ball around all points can hold a place with a low enough rank.
bool CellSearch::isNear() const {
  const auto& [low, high] = _piece.getBounds();
  const Vector3 center = placed(0.5 * (low + high), _placement);
  const double radius = 0.5 * length(high - low) * greatestStretch(_placement);
  const double distance = dot(center - _line.origin, _line.direction);
  const double furthest = distance + radius;
  const double reach = reachAt(furthest);
  return length(center - _line.at(distance)) <= radius + reach && furthest + reach >= _span.first &&
         distance - radius - reach <= std::min(_span.last, _rankToBeat);
}

/// How far beside the sight line a line or a point is pointed at.
double CellSearch::reachAt(double distance) const {
  const Appearance& look = _piece.appearance;
  const double pixel = std::max(_line.pixelSize(distance), 0.0);
  const bool isPoint = look.kind == Appearance::Kind::POINTS;
  const double size = (isPoint ? look.pointSize : look.lineWidth) * (look.hasModelSize ? 1.0 : pixel);
  return std::max(REACH * pixel, 0.5 * std::min(size, Appearance::MOST_POINT_PIXELS * pixel));
}

void CellSearch::lookAtCells(vtkCellArray* cells, Look look) {
  if (cells == nullptr) {
    return;
  }
  const CellReader reader(*cells);
  for (vtkIdType cell = 0; cell < reader.size(); ++cell) {
    _cell = _cellsBefore + cell;
    (this->*look)(reader[cell]);
  }
  _cellsBefore += reader.size();
}

/// The first of the node's vertices that names a point; below 0 for none.
vtkIdType CellSearch::vertexOf(vtkIdType point) const {
  if (_piece.node->getVerts() == nullptr) {
    return -1;
  }
  const CellReader vertices(*_piece.node->getVerts());
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

void CellSearch::lookAtVertices(const Corners& corners) {
  for (vtkIdType i = 0; i < corners.size(); ++i) {
    lookAtPoint(corners[i]);
  }
}

void CellSearch::lookAtLine(const Corners& corners) {
  for (vtkIdType i = 1; i < corners.size(); ++i) {
    lookAtSegment(corners[i - 1], corners[i]);
  }
}

void CellSearch::lookAtOutline(const Corners& corners) {
  lookAtLine(corners);
  if (corners.size() > 0) {
    lookAtSegment(corners[corners.size() - 1], corners[0]);
  }
}

/// Of the triangles that all begin at the first corner, those that go round the
/// other way cover what lies outside a polygon that is not convex.
void CellSearch::lookAtPolygon(const Corners& corners) {
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

void CellSearch::lookAtStrip(const Corners& corners) {
  for (vtkIdType i = 2; i < corners.size(); ++i) {
    const Crossing crossing = meet(corners[i - 2], corners[i - 1], corners[i]);
    if (crossing.side != 0) {
      offerFace(crossing.distance, corners, i - 2, 3);
    }
  }
}

void CellSearch::lookAtStripEdges(const Corners& corners) {
  lookAtLine(corners);
  for (vtkIdType i = 2; i < corners.size(); ++i) {
    lookAtSegment(corners[i - 2], corners[i]);
  }
}

void CellSearch::lookAtPoint(vtkIdType point) {
  const Vector3 place = placeOf(point);
  offerBeside(dot(place - _line.origin, _line.direction), place, point);
}

void CellSearch::lookAtSegment(vtkIdType from, vtkIdType to) {
  const Vector3 start = placeOf(from);
  const Vector3 edge = placeOf(to) - start;
  const Vector3 away = start - _line.origin;
  // Of the segment, seen along the sight line: its square, and how far along
  // it the sight line passes.
  const double along = dot(edge, _line.direction);
  const double square = dot(edge, edge) - along * along;
  const double passed = dot(away, _line.direction) * along - dot(away, edge);
  const double share = square > 0.0 ? std::clamp(passed / square, 0.0, 1.0) : 0.0;
  const Vector3 place = start + share * edge;
  offerBeside(dot(place - _line.origin, _line.direction), place, share < 0.5 ? from : to);
}

/// T. Möller, B. Trumbore: Fast, minimum storage ray/triangle intersection,
/// Journal of Graphics Tools 2 (1997).
CellSearch::Crossing CellSearch::meet(vtkIdType a, vtkIdType b, vtkIdType c) const {
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
  // Also false for what is not a number.
  if (!(u >= -OVERLAP && v >= -OVERLAP && u + v <= 1.0 + OVERLAP)) {
    return {};
  }
  return {dot(second, turned) / determinant, determinant > 0.0 ? 1 : -1};
}

void CellSearch::offerFace(double distance, const Corners& corners, vtkIdType firstCorner, vtkIdType count) {
  if (!(distance <= _rankToBeat)) {
    return;
  }
  const Vector3 place = _line.at(distance);
  vtkIdType nearest = corners[firstCorner];
  for (vtkIdType i = 0; i < count; ++i) {
    const vtkIdType point = corners[firstCorner + i];
    if (!isFinite(_points[point])) {
      // Such a face is not drawn.
      return;
    }
    if (length(placeOf(point) - place) < length(placeOf(nearest) - place)) {
      nearest = point;
    }
  }
  offer(distance, distance, nearest);
}

void CellSearch::offerBeside(double distance, const Vector3& place, vtkIdType point) {
  const double beside = length(place - _line.at(distance));
  const double reach = reachAt(distance);
  if (beside <= reach) {
    offer(distance, distance + beside - reach, point);
  }
}

void CellSearch::offer(double distance, double rank, vtkIdType point) {
  // Of those that are equally near the last is seen.
  if (rank <= _rankToBeat && distance >= _span.first && distance <= _span.last && std::isfinite(distance)) {
    _rankToBeat = rank;
    _best = Hit{distance, rank, _cell, point};
  }
}

}  // namespace vemo
