#pragma once

#include "vemoview/render/pick/SightLine.h"
#include <vemo/render/Pick.h>

#include <limits>
#include <optional>

class vtkPlaneCollection;

namespace vemo {

struct Piece;

/// Finds what a sight line meets first. Faces are met where they are; lines and
/// points also a few pixels beside them, and before the faces that they lie on.
class Picker {
 public:
  /// The planes cut what is clipped.
  Picker(const SightLine& line, vtkPlaneCollection& planes);

  /// Looks for a nearer place on a piece. Its node still holds the arrays that
  /// the piece was made of.
  void look(const Piece& piece);

  const std::optional<Pick>& getNearest() const { return _nearest; }

 private:
  SightLine _line;
  Span _whole;
  /// What the planes leave of it.
  Span _unclipped;
  std::optional<Pick> _nearest;
  double _nearestRank = std::numeric_limits<double>::infinity();
};

}  // namespace vemo
