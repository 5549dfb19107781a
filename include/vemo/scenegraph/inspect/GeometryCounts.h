#pragma once

#include <vemo/geometry/CellKind.h>
#include <vemo/scenegraph/Export.h>

#include <array>
#include <cstdint>

namespace lum {

class Drawable;
class Node;
class PolyDataNode;

/// Counts of geometry, summed over PolyDataNodes.
class VEMO_SCENEGRAPH_EXPORT GeometryCounts {
 public:
  /// Of all poly data that a drawable draws itself, without its children.
  static GeometryCounts ofDrawable(const Drawable& drawable);
  /// Of all poly data in the graph below a node.
  static GeometryCounts ofGraph(Node& root);

  /// The number of PolyDataNodes.
  std::int64_t getMeshes() const { return _meshes; }
  std::int64_t getPoints() const { return _points; }
  std::int64_t getCells(vemo::CellKind kind) const { return _cells[vemo::indexOf(kind)]; }
  /// Of all kinds.
  std::int64_t getCells() const;

 private:
  void add(const PolyDataNode& node);

  std::int64_t _meshes = 0;
  std::int64_t _points = 0;
  std::array<std::int64_t, vemo::CELL_KINDS.size()> _cells{};
};

}  // namespace lum
