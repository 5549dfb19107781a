#pragma once

#include <vtkSmartPointer.h>

class vtkDataArray;
class vtkLookupTable;
namespace lum {
class ColorLookupTable;
}

namespace vemo {

/// VTK's form of a colour lookup table, for the values of an array.
///
/// The colours of the table are taken as they are: its ramp mode tells how they
/// were made and does not bend them once more. Of an array with several
/// components the first is looked up.
///
/// A table without colours (null is one, too) gets 256 from blue over green to
/// red. A scalar range that cannot be used (not finite, the larger end first,
/// or with a value of zero or below in a logarithmic table) is replaced by that
/// of the array's values; a logarithmic table for values none of which is above
/// zero is linear.
vtkSmartPointer<vtkLookupTable> makeLookupTable(const lum::ColorLookupTable* table, vtkDataArray& values);

}  // namespace vemo
