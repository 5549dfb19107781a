#include "vemoview/window/GeometryCounts.h"

#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>

namespace vemo {

namespace {

std::int64_t countCells(vtkCellArray* cells) {
  return cells == nullptr ? 0 : cells->GetNumberOfCells();
}

}  // namespace

GeometryCounts countGeometry(const lum::Drawable& drawable) {
  GeometryCounts counts;
  for (const auto& node : drawable.getNodes()) {
    if (const auto* const piece = dynamic_cast<const lum::PolyDataNode*>(node.getObject())) {
      counts.points += piece->getPoints() == nullptr ? 0 : piece->getPoints()->GetNumberOfTuples();
      counts.verts += countCells(piece->getVerts());
      counts.lines += countCells(piece->getLines());
      counts.polys += countCells(piece->getPolys());
      counts.strips += countCells(piece->getStrips());
    }
  }
  return counts;
}

}  // namespace vemo
