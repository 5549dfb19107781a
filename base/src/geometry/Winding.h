#pragma once

#include "geometry/Bounds.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class vtkPolyData;

/// The winding of the faces of a mesh, its polygons and the triangles of its strips.
/// It is consistent if any two faces that share an edge run through it in opposite
/// directions.
namespace vemo {

/// Whether no two faces run from one of the marked points to the same next point.
/// @param marks of points; empty if no point is marked
/// @param facesAtPoint for each point, how many faces it is a corner of
bool isConsistentlyWound(vtkPolyData& mesh, const PointMarks& marks,
                         std::span<const std::uint32_t> facesAtPoint);

/// The points of all faces; the triangles of strips come last. There are fewer than 2^32 points, and
/// corners of faces.
class FaceList {
 public:
  explicit FaceList(vtkPolyData& mesh);

  std::size_t size() const { return _ends.size() - 1; }

  std::span<const std::uint32_t> operator[](std::size_t face) const {
    return {_points.data() + _ends[face], _points.data() + _ends[face + 1]};
  }

  /// Reverses faces until each connected part of the mesh is wound like its first
  /// face, as far as possible: the faces that vtkPolyDataNormals reverses for
  /// consistency. Only where very many faces of more than six corners meet at few points may
  /// neighbors be left out that have both points of an edge, but not the edge.
  void makeConsistent();

 private:
  bool runsThrough(std::size_t face, std::uint32_t from, std::uint32_t to) const;
  void reverse(std::size_t face);

  std::size_t _pointCount;
  std::vector<std::uint32_t> _points;
  std::vector<std::uint32_t> _ends{0};
};

}  // namespace vemo
