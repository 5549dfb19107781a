#pragma once

#include <vtkType.h>

#include <cstddef>
#include <unordered_set>
#include <vector>

class vtkCellArray;
class vtkDataArray;
class vtkPolyData;
namespace lum {
class PolyDataNode;
}

namespace vemo {

/// How much may be drawn, in elements: points, cells and corners of cells. A small file may have very
/// many geometries share their arrays, or repeat them very often. Memory and time follow from what is
/// drawn, so this follows from what the scene really has: each limit is a number for each element of
/// the scene, and a number of its own, so that small parts can be used a great many times.
struct DrawingLimits {
  /// Each mesh as often as it is drawn. A part of 20,000 elements, such as a bolt of 2,000 points,
  /// may be drawn 3,000 times.
  static constexpr vtkIdType DRAWN = 60'000'000;
  static constexpr vtkIdType DRAWN_PER_ELEMENT = 20;
  static constexpr vtkIdType MOST_DRAWN = 200'000'000;

  /// Made for drawing, where the scene's own arrays cannot be drawn as they are: some 16 bytes each.
  static constexpr vtkIdType MADE = 2'000'000;
  static constexpr vtkIdType MADE_PER_ELEMENT = 4;

  /// Instances after the first one of each mesh.
  static constexpr vtkIdType COPIES = 50'000;
};

/// What the meshes of a canvas come to.
struct DrawingLoad {
  /// Elements of the scene, and the values at them, each once.
  vtkIdType content = 0;
  vtkIdType drawn = 0;
  vtkIdType made = 0;
  vtkIdType copies = 0;

  /// Throw SceneTooLarge, with a text that names a geometry to begin with.
  /// @param largest what draws or makes most
  void requireDrawn(const lum::PolyDataNode& largest) const;
  void requireMade(const lum::PolyDataNode& largest) const;
  vtkIdType mostMade() const;
  void requireCopies() const;
};

/// Counts the elements of nodes, and the values at them: those that they share once. The nodes must
/// outlive it.
class ContentCount {
 public:
  /// Those that no node has had before.
  vtkIdType add(const lum::PolyDataNode& node);

  /// What was added so far stays.
  void accept() { _added.clear(); }
  /// As if nothing had been added since then.
  void takeBack();

 private:
  /// Nothing if it is known.
  vtkIdType add(vtkDataArray& array, vtkIdType count);

  std::unordered_set<const void*> _arrays;
  std::vector<const void*> _added;
};

/// The cells and corners of cells.
vtkIdType sizeOf(const vtkCellArray& cells);

/// The elements of a node: points, and cells that are drawn or not.
vtkIdType sizeOf(const lum::PolyDataNode& node);

/// The elements of poly data that are not in what it was made of.
vtkIdType countMade(vtkPolyData& result, vtkPolyData& source);

}  // namespace vemo
