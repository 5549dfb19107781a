#pragma once

#include "vemoview/render/Appearance.h"
#include "vemoview/render/VisibleDrawables.h"

#include <vtkLookupTable.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

#include <string>
#include <vector>

/// A piece of geometry that is seen, with all that is needed to draw it.
struct Piece {
  enum class Coloring {
    /// All of it has the appearance's colour.
    PLAIN,
    /// By an array over its cells, or over its points.
    CELL_SCALARS,
    POINT_SCALARS,
  };

  /// Everything in it can be drawn; its arrays fit.
  vtkSmartPointer<vtkPolyData> geometry;
  Appearance appearance;
  Coloring coloring = Coloring::PLAIN;
  /// The name of the scalars' array.
  std::string scalars;
  /// From scalars to colours; without one the scalars are colours themselves
  /// (bytes of red, green, blue, alpha).
  vtkSmartPointer<vtkLookupTable> table;
  SharedPlacements placements;
  /// Whether its lines lie on faces, and must not sink into them.
  bool isOnFaces = false;
};

/// The visible pieces of drawables, in order. Throws RenderError when together
/// they are too large to be drawn.
std::vector<Piece> collectPieces(const std::vector<VisibleDrawable>& drawables);
