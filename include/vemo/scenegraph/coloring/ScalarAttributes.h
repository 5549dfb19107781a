#pragma once

#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/attributes/Attributes.h>
#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/coloring/DataArrayAttributes.h>

namespace lum {

/// Colouring by data: the array and the colours for its values.
class VEMO_SCENEGRAPH_EXPORT ScalarAttributes final : public Attributes {
  LUM_NODE(ScalarAttributes, Attributes)
  LUM_OWNED(ColorLookupTable, ColorLookupTable, _colorLookupTable)
  LUM_OWNED(DataArrayAttributes, DataArray, _dataArray)
};

}  // namespace lum
