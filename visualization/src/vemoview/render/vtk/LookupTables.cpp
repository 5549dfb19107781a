#include "vemoview/render/vtk/LookupTables.h"

#include "vemoview/common/VtkForms.h"

#include <vtkLookupTable.h>

namespace vemo {

vtkLookupTable* LookupTables::get(const std::shared_ptr<const ColorTable>& table) {
  auto& result = _tables[table];
  if (result == nullptr) {
    result = makeVtkLookupTable(*table);
  }
  return result;
}

}  // namespace vemo
