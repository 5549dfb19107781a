#pragma once

#include "vemoview/render/Appearance.h"
#include "vemoview/render/Box.h"
#include "vemoview/render/VisibleDrawables.h"

#include <vtkLookupTable.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

#include <map>
#include <string>
#include <vector>

namespace lum {
class PolyDataNode;
}

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

  /// Around all points; reckoned when it is first asked for.
  const Box& getBounds() const;

 private:
  mutable Box _bounds;
};

/// Makes pieces of drawables, and keeps an eye on their size.
class PieceCollector {
 public:
  /// The pieces of drawables, in order. Throws RenderError when with all those
  /// collected before they are too large to be drawn.
  std::vector<Piece> collect(const std::vector<VisibleDrawable>& drawables);

 private:
  void count(const Piece& piece);
  void shareTable(Piece& piece);

  /// By what is in them.
  std::map<std::string, vtkSmartPointer<vtkLookupTable>> _tables;
  vtkIdType _size = 0;
  vtkIdType _copies = 0;
};
