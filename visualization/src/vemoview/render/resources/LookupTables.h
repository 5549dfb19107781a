#pragma once

#include "vemoview/common/VtkForms.h"
#include <vemo/scenegraph/coloring/ColorTable.h>

#include <vtkSmartPointer.h>

#include <map>
#include <memory>

class vtkLookupTable;

namespace vemo {

/// VTK's forms of colour tables, each made once. Tables that share their colours share VTK's form of
/// these, too.
class LookupTables {
 public:
  vtkLookupTable* get(const std::shared_ptr<const ColorTable>& table);

 private:
  std::map<std::shared_ptr<const ColorTable>, vtkSmartPointer<vtkLookupTable>> _tables;
  VtkColors _colors;
};

}  // namespace vemo
