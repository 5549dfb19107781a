#pragma once

#include <vemo/resolve/ColorTable.h>

class vtkDataArray;
namespace lum {
class ColorLookupTable;
}

namespace vemo {

/// The colours of a table for the values of an array.
///
/// They are used as they are: the table's ramp mode says how they were made, and
/// is not applied again.
///
/// A table without colours (or null) gets 256 from blue over green to red. A
/// scalar range that cannot be used (not finite, the larger end first, or with
/// a value of zero or below in a logarithmic table) is replaced by that of the
/// array's values; a logarithmic table becomes linear when none of them is above
/// zero.
ColorTable resolveColorTable(const lum::ColorLookupTable* table, vtkDataArray& values);

}  // namespace vemo
