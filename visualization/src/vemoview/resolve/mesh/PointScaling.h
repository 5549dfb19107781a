#pragma once

#include <vemo/resolve/MeshInstance.h>
#include <vemo/scenegraph/drawables/GeometryDrawable.h>

#include <vtkPolyData.h>
#include <vtkSmartPointer.h>
#include <vtkType.h>

#include <compare>
#include <cstddef>
#include <map>
#include <vector>

class vtkDataArray;

namespace vemo {

/// Points that are scaled by data. Meshes that have their points, values and range in common share
/// what they are sorted into. Values must outlive it.
class SizedPoints {
 public:
  /// The points of a mesh sorted into meshes of a few sizes by an array over its
  /// points, as the drawable's PointScaleAttributes say; they share all arrays.
  /// The mesh alone when nothing is to be scaled, or its array does not fit. A
  /// value without a size (one that is not a number, or in a logarithmic scale is
  /// not above 0) has that of the low end of the range.
  std::vector<MeshInstance> split(MeshInstance mesh, const lum::GeometryDrawable& drawable);

  /// The elements of all that was sorted: vertices, with a corner each.
  vtkIdType getMade() const { return _made; }

  /// Forgets what nothing else uses any more.
  void dropUnused();

 private:
  /// The points of one size, by its number.
  using Parts = std::map<std::size_t, vtkSmartPointer<vtkPolyData>>;

  struct Sorted {
    vtkSmartPointer<vtkPolyData> points;
    Parts parts;
    vtkIdType made = 0;
  };

  struct Key {
    const vtkPolyData* points;
    const vtkDataArray* values;
    Vector<2, double> range;
    bool isLog;

    auto operator<=>(const Key&) const = default;
  };

  const Parts& sort(vtkPolyData& points, vtkDataArray& values, const Vector<2, double>& range, bool isLog);

  std::map<Key, Sorted> _sorted;
  vtkIdType _made = 0;
};

}  // namespace vemo
