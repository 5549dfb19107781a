#pragma once

#include <vemo/geometry/CellKind.h>
#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>

#include <array>
#include <vector>

class vtkCellArray;
class vtkDataArray;
class vtkDataSetAttributes;
class vtkPolyData;

namespace vemo {

/// The points, cells and arrays of a poly data, which are shared with it. A poly data alone
/// takes about 3 KB: more than most geometries of a scene that has very many.
class VEMO_GEOMETRY_EXPORT PolyDataContent {
 public:
  PolyDataContent() = default;
  explicit PolyDataContent(vtkPolyData& polyData);

  /// @param polyData an empty one
  void putInto(vtkPolyData& polyData) const;

  /// An order of contents by the objects in them: equal are those that have the very same.
  bool operator<(const PolyDataContent& other) const;

 private:
  struct Data {
    std::vector<vtkSmartPointer<vtkDataArray>> arrays;
    /// Which of them are the normals; null if none are.
    vtkDataArray* normals = nullptr;

    Data() = default;
    explicit Data(vtkDataSetAttributes& data);
    void putInto(vtkDataSetAttributes& data) const;
  };

  vtkSmartPointer<vtkDataArray> _points;
  /// By kind; null for none.
  std::array<vtkSmartPointer<vtkCellArray>, CELL_KINDS.size()> _cells;
  Data _ofPoints;
  Data _ofCells;
};

}  // namespace vemo
