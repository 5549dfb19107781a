#include "scenegraph/io/codec/PolyDataCheck.h"

#include <vemo/scenegraph/drawables/PolyDataNode.h>

namespace lum::io {

std::string PolyDataCheck::findFault(const Node& node) {
  const auto* const geometry = dynamic_cast<const PolyDataNode*>(&node);
  if (geometry == nullptr) {
    return {};
  }
  vemo::PolyDataArrays arrays{.points = geometry->getPoints(),
                              .pointData = geometry->getNodeDataArrays(),
                              .cellData = geometry->getCellDataArrays()};
  for (const vemo::CellKindTraits& traits : vemo::CELL_KINDS) {
    arrays.cells[vemo::indexOf(traits.kind)] = geometry->getCells(traits.kind);
  }
  return _validator.findFault(arrays);
}

}  // namespace lum::io
