#pragma once

#include "geometry/Cells.h"
#include "geometry/Points.h"
#include "vemoview/render/pick/SightLine.h"

#include <optional>

namespace vemo {

struct Piece;

/// Looks through the cells of a piece, where one placement shows it, for the
/// place with the lowest rank on a sight line or near it. Of places on the line
/// the nearer one ranks lower; one beside it ranks as if it were nearer by what
/// it could still be further off, so that what lies on a face is found before
/// the face.
class CellSearch {
 public:
  struct Hit {
    /// Along the sight line.
    double distance = 0.0;
    double rank = 0.0;
    /// As in Pick.
    vtkIdType cell = -1;
    vtkIdType point = 0;
  };

  /// Only places within the span count, and only those not above a rank. The
  /// piece's node still holds the arrays that the piece was made of.
  CellSearch(const SightLine& line, const Span& span, const Piece& piece, const double* placement,
             double rankToBeat);

  std::optional<Hit> run();

  /// Where a point of the node is shown.
  Vector3 placeOf(vtkIdType point) const;

 private:
  using Look = void (CellSearch::*)(const Corners&);

  /// How a sight line meets a triangle.
  struct Crossing {
    double distance = 0.0;
    /// 1 or -1 for the side that it comes from, 0 when it does not meet it.
    int side = 0;
  };

  bool isNear() const;
  double reachAt(double distance) const;
  void lookAtCells(vtkCellArray* cells, Look look);
  vtkIdType vertexOf(vtkIdType point) const;
  void lookAtVertices(const Corners& corners);
  void lookAtLine(const Corners& corners);
  void lookAtOutline(const Corners& corners);
  void lookAtPolygon(const Corners& corners);
  void lookAtStrip(const Corners& corners);
  void lookAtStripEdges(const Corners& corners);
  void lookAtPoint(vtkIdType point);
  void lookAtSegment(vtkIdType from, vtkIdType to);
  Crossing meet(vtkIdType a, vtkIdType b, vtkIdType c) const;
  void offerFace(double distance, const Corners& corners, vtkIdType firstCorner, vtkIdType count);
  void offerBeside(double distance, const Vector3& place, vtkIdType point);
  void offer(double distance, double rank, vtkIdType point);

  const SightLine& _line;
  const Span& _span;
  const Piece& _piece;
  const double* _placement;
  PointReader _points;
  /// The sight line in the coordinates of the points. Its direction is no unit
  /// vector: distances along it are those in the model.
  Vector3 _origin;
  Vector3 _direction;
  /// The cell being looked at, and the number of cells of the kinds before its.
  vtkIdType _cell = -1;
  vtkIdType _cellsBefore = 0;
  double _rankToBeat;
  std::optional<Hit> _best;
};

}  // namespace vemo
