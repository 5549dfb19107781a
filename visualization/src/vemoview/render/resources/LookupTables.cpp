#include "vemoview/render/resources/LookupTables.h"

#include <vtkLookupTable.h>

namespace vemo {

vtkLookupTable* LookupTables::get(const std::shared_ptr<const ColorTable>& table) {
  auto& result = _tables[table];
  if (result == nullptr) {
    result = makeVtkLookupTable(*table, _colors.get(table->rgba));
  }
  return result;
}

}  // namespace vemo
