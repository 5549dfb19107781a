#include "vemoview/render/resources/LookupTables.h"

#include "vemoview/common/VtkForms.h"

#include <vtkLookupTable.h>
#include <vtkUnsignedCharArray.h>

namespace vemo {

vtkLookupTable* LookupTables::get(const std::shared_ptr<const ColorTable>& table) {
  auto& result = _tables[table];
  if (result == nullptr) {
    auto& colors = _colors[&table->rgba.get()];
    if (colors == nullptr) {
      colors = makeVtkColors(table->rgba.get());
    }
    result = makeVtkLookupTable(*table, *colors);
  }
  return result;
}

}  // namespace vemo
