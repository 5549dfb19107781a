#pragma once

#include "geometry/Bounds.h"
#include <vemo/geometry/Export.h>

#include <vtkType.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class vtkPolyData;

/// Whether the faces of a mesh, its polygons and the triangles of its strips, are
/// wound alike: two that share an edge then run through it in opposite directions.
namespace vemo {

/// Whether no two faces run from one of the marked points to the same next point.
/// @param marks of points; empty when none is marked
/// @param facesAtPoint the number of corners that each point is
VEMO_GEOMETRY_EXPORT bool areWoundAlike(vtkPolyData& mesh, const PointMarks& marks,
                                        std::span<const std::uint32_t> facesAtPoint);

/// The points of all faces, those of strips last.
class VEMO_GEOMETRY_EXPORT FaceList {
 public:
  explicit FaceList(vtkPolyData& mesh);

  std::size_t size() const { return _ends.size() - 1; }

  std::span<const vtkIdType> operator[](std::size_t face) const {
    return {_points.data() + _ends[face], _points.data() + _ends[face + 1]};
  }

  /// Reverses faces until each part of the mesh is wound as the first face in it, or
  /// as far as that is possible: which faces vtkPolyDataNormals reverses to
  /// make them consistent.
  void windAlike(std::span<const std::uint32_t> facesAtPoint);

 private:
  bool runsThrough(std::size_t face, vtkIdType from, vtkIdType to) const;
  void reverse(std::size_t face);

  std::vector<vtkIdType> _points;
  std::vector<std::size_t> _ends{0};
};

}  // namespace vemo
