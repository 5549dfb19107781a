#pragma once

#include <vemo/scenegraph/coloring/ColorTable.h>

#include <vtkSmartPointer.h>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

class vtkLookupTable;
class vtkUnsignedCharArray;

namespace vemo {

/// VTK's forms of colour tables, each made once. Tables that share their colours share VTK's form of
/// these, too.
class LookupTables {
 public:
  vtkLookupTable* get(const std::shared_ptr<const ColorTable>& table);

 private:
  std::map<std::shared_ptr<const ColorTable>, vtkSmartPointer<vtkLookupTable>> _tables;
  /// Of lists that the tables keep.
  std::map<const std::vector<std::uint8_t>*, vtkSmartPointer<vtkUnsignedCharArray>> _colors;
};

}  // namespace vemo
