#pragma once

#include "geometry/CellValidator.h"
#include <vemo/resolve/Appearance.h>

#include <vtkIdList.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>
#include <vtkType.h>

#include <compare>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vemo {

/// What is drawn of poly data.
struct PreparedMesh {
  /// As MeshInstance describes both.
  vtkSmartPointer<vtkPolyData> geometry;
  vtkSmartPointer<vtkPolyData> filling;
  /// How many polygons are drawn with the wrong shape.
  vtkIdType misshapenPolygons = 0;
  /// The elements of a filling that would be too large and was not made.
  vtkIdType unfilled = 0;
};

/// Geometries that have the very same points, cells and arrays share what is drawn of them, which
/// nobody may change: it is checked, prepared and kept in memory once, however many they are. The arrays
/// of cells must outlive it.
class PreparedMeshes {
 public:
  /// What is drawn.
  struct Parts {
    Appearance::Kind kind = Appearance::Kind::SURFACE;
    /// Points that no vertex uses, too.
    bool isOfAllPoints = false;
    bool hasFaces = false;
    /// The array over cells that colours; empty if none does.
    std::string colorsOfCells;

    auto operator<=>(const Parts&) const = default;
  };

  /// What is wrong with cells; empty when nothing is.
  std::string findFault(vtkCellArray& cells, const CellRules& rules) {
    return _validator.findFault(cells, rules);
  }

  /// The first poly data that has the very same points, cells and arrays: from now on the given one if
  /// there is none.
  vtkSmartPointer<vtkPolyData> share(vtkPolyData& geometry);

  /// Of poly data that is shared, with valid cells.
  const PreparedMesh& prepare(vtkPolyData& shared, const Parts& parts);

  /// Poly data with the points alone that its cells use, and the numbers that these have had.
  struct UsedPoints {
    vtkSmartPointer<vtkPolyData> geometry;
    vtkSmartPointer<vtkIdList> numbers;
  };
  /// Of what was prepared, or a part of it that is kept elsewhere.
  const UsedPoints& withUsedPoints(vtkPolyData& geometry);

  /// The elements of all that it has made and still knows.
  vtkIdType getMade() const { return _made; }

  /// From now on, polygons that would bring getMade() above this are counted there, but not filled.
  void limitMade(vtkIdType most) { _mostMade = most; }

  /// Forgets what nothing else uses any more: parts of points first, since these keep what they were
  /// made of.
  void dropUnusedPoints();
  void dropUnused();

 private:
  struct Prepared {
    PreparedMesh mesh;
    vtkIdType made = 0;
  };
  struct Compacted {
    vtkSmartPointer<vtkPolyData> source;
    UsedPoints result;
    vtkIdType made = 0;
  };

  CellValidator _validator;
  /// By all that is in them, which they keep.
  std::map<std::vector<const void*>, vtkSmartPointer<vtkPolyData>> _shared;
  std::map<std::pair<vtkPolyData*, Parts>, Prepared> _prepared;
  std::map<vtkPolyData*, Compacted> _compacted;
  vtkIdType _made = 0;
  vtkIdType _mostMade = std::numeric_limits<vtkIdType>::max();
};

}  // namespace vemo
