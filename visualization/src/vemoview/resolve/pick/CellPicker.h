#pragma once

#include "geometry/Cells.h"
#include "geometry/Points.h"
#include <vemo/resolve/InstanceTransforms.h>
#include <vemo/resolve/PickRay.h>

#include <optional>

namespace vemo {

struct MeshInstance;

/// Searches the cells of one instance of a mesh for the position with the
/// lowest rank on a pick ray or near it. Of positions on the ray the nearer one
/// ranks lower; one beside it ranks as if it were nearer by the unused
/// tolerance, so that lines and points on a face are found before the face.
class CellPicker {
 public:
  struct Hit {
    /// Along the pick ray.
    double distance = 0.0;
    double rank = 0.0;
    /// As in Pick.
    vtkIdType cell = -1;
    vtkIdType point = 0;
  };

  /// Only positions within the interval count, and only ranks not above a limit.
  /// The mesh's node must still hold the arrays that the mesh was made of.
  CellPicker(const PickRay& ray, const RayInterval& interval, const MeshInstance& mesh,
             const InstanceTransform* transform, double rankToBeat);

  std::optional<Hit> run();

  /// Where a point of the node is seen.
  Vector3 positionOf(vtkIdType point) const;

 private:
  using Test = void (CellPicker::*)(const Corners&);

  /// How the ray crosses a triangle.
  struct Crossing {
    double distance = 0.0;
    /// 1 or -1 for the side that it comes from, 0 when it misses.
    int side = 0;
  };

  bool isNear() const;
  double toleranceAt(double distance) const;
  void skipCells(const vtkCellArray* cells);
  void testCells(vtkCellArray* cells, Test test);
  vtkIdType vertexOf(vtkIdType point) const;
  void testVertices(const Corners& corners);
  void testLine(const Corners& corners);
  void testOutline(const Corners& corners);
  void testPolygon(const Corners& corners);
  void testStrip(const Corners& corners);
  void testStripEdges(const Corners& corners);
  void testPoint(vtkIdType point);
  void testSegment(vtkIdType from, vtkIdType to);
  Crossing meet(vtkIdType a, vtkIdType b, vtkIdType c) const;
  void offerFace(double distance, const Corners& corners, vtkIdType firstCorner, vtkIdType count);
  void offerBeside(double distance, const Vector3& position, vtkIdType point);
  void offer(double distance, double rank, vtkIdType point);

  const PickRay& _ray;
  const RayInterval& _interval;
  const MeshInstance& _mesh;
  const InstanceTransform* _transform;
  PointReader _points;
  /// The pick ray in the coordinates of the points. Its direction is not a unit
  /// vector: distances along it are those in the model.
  Vector3 _origin;
  Vector3 _direction;
  /// The cell being tested, and the number of cells of the kinds before its kind.
  vtkIdType _cell = -1;
  vtkIdType _cellsBefore = 0;
  double _rankToBeat;
  std::optional<Hit> _best;
};

}  // namespace vemo
