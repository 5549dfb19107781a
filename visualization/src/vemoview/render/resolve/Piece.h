#pragma once

#include "geometry/Box.h"
#include "vemoview/render/resolve/Appearance.h"
#include "vemoview/render/resolve/VisibleDrawables.h"
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkLookupTable.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

#include <map>
#include <string>
#include <vector>

namespace vemo {

/// A piece of geometry that is seen, with all that is needed to draw it.
struct Piece {
  enum class Coloring {
    /// All of it has the appearance's colour.
    PLAIN,
    /// By an array over its cells, or over its points.
    CELL_SCALARS,
    POINT_SCALARS,
  };

  /// What it is a piece of, and where its geometry comes from: both are the
  /// scene's.
  const lum::Drawable* drawable = nullptr;
  const lum::PolyDataNode* node = nullptr;
  /// Everything in it can be drawn; its arrays fit.
  vtkSmartPointer<vtkPolyData> geometry;
  Appearance appearance;
  Coloring coloring = Coloring::PLAIN;
  /// The name of the scalars' array.
  std::string scalars;
  /// From scalars to colours; without one the scalars are colours themselves
  /// (bytes of red, green, blue, alpha). Pieces of one collector whose tables are
  /// equal share one.
  vtkSmartPointer<vtkLookupTable> table;
  SharedPlacements placements;
  /// Whether it is lines that lie on faces, and must not sink into them.
  bool isOnFaces = false;

  /// Around all points; reckoned when it is first asked for.
  const Box& getBounds() const;

 private:
  mutable Box _bounds;
};

/// Null when there is none of the name.
vtkDataArray* findArray(const lum::ArrayTable& table, const std::string& name);

/// Makes pieces of drawables, and keeps an eye on their size.
class PieceCollector {
 public:
  /// So often is each copy of what is clipped cut by itself.
  explicit PieceCollector(int cutsPerCopy) : _cutsPerCopy(cutsPerCopy) {}

  /// The pieces of drawables, in order. Throws RenderError when with all those
  /// collected before they are too large to be drawn; those then do not count.
  std::vector<Piece> collect(const std::vector<VisibleDrawable>& drawables);

 private:
  /// What takes time and memory.
  struct Load {
    vtkIdType size = 0;
    vtkIdType copies = 0;
  };

  vtkIdType timesDrawn(const Piece& piece) const;
  void countSize(const Piece& piece, Load& load) const;
  void countCopies(const Piece& piece, Load& load) const;
  void shareTable(Piece& piece);

  /// By what is in them.
  std::map<std::string, vtkSmartPointer<vtkLookupTable>> _tables;
  int _cutsPerCopy;
  Load _load;
};

}  // namespace vemo
