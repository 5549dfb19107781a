#include "vemoview/render/draw/LookupTables.h"

#include "vemoview/common/VtkForms.h"

#include <vtkLookupTable.h>

namespace vemo {

vtkLookupTable* LookupTables::get(const std::shared_ptr<const ColorTable>& table) {
  auto& result = _tables[table];
  if (result == nullptr) {
    result = makeVtkLookupTable(table->rgba, table->range, table->isLog10);
  }
  return result;
}

}  // namespace vemo
