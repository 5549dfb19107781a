#pragma once

#include <vemo/scenegraph/Node.h>

namespace lum {

/// Which data array colours a drawable, and how it is presented.
class VEMO_SCENEGRAPH_EXPORT DataArrayAttributes final : public Node {
  LUM_NODE(DataArrayAttributes, Node)
  LUM_VALUE(std::string, DataArrayName, _dataArrayName)
  LUM_VALUE(Vector2, Range, _range, {0.0, 1.0})
  LUM_VALUE(std::string, DataArrayPresentationName, _dataArrayPresentationName)
};

}  // namespace lum
