#pragma once

#include <vemo/scenegraph/coloring/ColorTable.h>

#include <vtkSmartPointer.h>

#include <map>
#include <memory>

class vtkLookupTable;

namespace vemo {

/// VTK's forms of colour tables, each made once.
class LookupTables {
 public:
  vtkLookupTable* get(const std::shared_ptr<const ColorTable>& table);

 private:
  std::map<std::shared_ptr<const ColorTable>, vtkSmartPointer<vtkLookupTable>> _tables;
};

}  // namespace vemo
