#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>
#include <vemo/scenegraph/inspect/GeometryCounts.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>

#include <numeric>

namespace lum {

GeometryCounts GeometryCounts::ofDrawable(const Drawable& drawable) {
  GeometryCounts counts;
  for (const auto& node : drawable.getNodes()) {
    if (const auto* const mesh = dynamic_cast<const PolyDataNode*>(node.getObject())) {
      counts.add(*mesh);
    }
  }
  return counts;
}

GeometryCounts GeometryCounts::ofGraph(Node& root) {
  GeometryCounts counts;
  forEachNodeOf<PolyDataNode>(root, [&counts](const PolyDataNode& node) { counts.add(node); });
  return counts;
}

std::int64_t GeometryCounts::getCells() const {
  return std::accumulate(_cells.begin(), _cells.end(), std::int64_t{0});
}

void GeometryCounts::add(const PolyDataNode& node) {
  ++_meshes;
  _points += node.getPoints() != nullptr ? node.getPoints()->GetNumberOfTuples() : 0;
  for (const vemo::CellKindTraits& kind : vemo::CELL_KINDS) {
    const vtkCellArray* const cells = node.getCells(kind.kind);
    _cells[vemo::indexOf(kind.kind)] += cells != nullptr ? cells->GetNumberOfCells() : 0;
  }
}

}  // namespace lum
