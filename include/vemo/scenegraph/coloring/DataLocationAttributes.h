#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

LUM_ENUM(DataLocation, (CELLS, "cells"), (POINTS, "points"))

/// Whether the data array that colours a drawable has a value for each cell or
/// for each point.
class VEMO_SCENEGRAPH_EXPORT DataLocationAttributes final : public Attributes {
  LUM_NODE(DataLocationAttributes, Attributes)
  LUM_ENUMERATION(DataLocation, DataLocation, _dataLocation, DataLocation::POINTS)
};

}  // namespace lum
