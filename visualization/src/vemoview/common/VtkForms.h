#pragma once

#include <vemo/base/Vector.h>
#include <vemo/common/Export.h>
#include <vemo/scenegraph/coloring/ColorTable.h>

#include <vtkSmartPointer.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

class vtkLookupTable;
class vtkPlane;
class vtkUnsignedCharArray;

namespace vemo {

/// The channels of a colour in VTK's tables: red, green, blue, alpha.
inline constexpr std::size_t RGBA_CHANNELS = 4;

/// A VTK lookup table of these colours, four bytes each, the first for the low end
/// of the range; empty without colours. The colours are copied.
VEMO_COMMON_EXPORT vtkSmartPointer<vtkLookupTable> makeVtkLookupTable(std::span<const std::uint8_t> rgba,
                                                                      const Vector<2, double>& range,
                                                                      bool isLog10);

/// Colours, four bytes each, for any number of lookup tables.
VEMO_COMMON_EXPORT vtkSmartPointer<vtkUnsignedCharArray> makeVtkColors(std::span<const std::uint8_t> rgba);

/// VTK's forms of lists of colours, each made once.
class VEMO_COMMON_EXPORT VtkColors {
 public:
  /// The form of a list, which nobody may change.
  vtkUnsignedCharArray& get(const SharedColors& colors);

 private:
  struct Made {
    /// Kept, so that no other list takes its address.
    SharedColors colors;
    vtkSmartPointer<vtkUnsignedCharArray> form;
  };
  std::map<const std::vector<std::uint8_t>*, Made> _made;
};

/// The same colours for the same values as the table, whose own they are. Shares them with other
/// tables, which nobody may change then.
VEMO_COMMON_EXPORT vtkSmartPointer<vtkLookupTable> makeVtkLookupTable(const ColorTable& table,
                                                                      vtkUnsignedCharArray& colors);

/// The same colours for the same values as the table; a range of one value is
/// widened by more than the rounding of a float, since VTK gives it no middle.
VEMO_COMMON_EXPORT vtkSmartPointer<vtkLookupTable> makeVtkLookupTable(const ColorTable& table);

/// Clipping by the plane keeps the side that the normal points to.
VEMO_COMMON_EXPORT void setVtkPlane(vtkPlane& plane, const Vector3& origin, const Vector3& normal);

}  // namespace vemo
