#pragma once

#include <vemo/geometry/Export.h>

#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

class vtkDataSetAttributes;

namespace vemo {

/// Adds those of the arrays, which have different names, whose names the data do not have. What
/// the data have keeps its role.
VEMO_GEOMETRY_EXPORT void addArrays(const std::vector<vtkSmartPointer<vtkDataArray>>& arrays,
                                    vtkDataSetAttributes& data);

/// Arrays of different names, in the order in which the names came. VTK compares the names of
/// all its arrays with that of each added one, which takes very long for thousands. Names must
/// not change meanwhile.
class VEMO_GEOMETRY_EXPORT NamedArrays {
 public:
  /// Empty for an array without a name.
  static std::string_view nameOf(vtkDataArray& array);

  /// Replaces the array of the same name, in its place.
  void put(vtkDataArray& array);
  std::optional<std::size_t> find(std::string_view name) const;
  vtkDataArray& operator[](std::size_t place) const { return *_arrays[place]; }
  std::size_t size() const { return _arrays.size(); }

  std::vector<vtkSmartPointer<vtkDataArray>> release();
  /// As addArrays.
  void addTo(vtkDataSetAttributes& data) const { addArrays(_arrays, data); }

 private:
  std::vector<vtkSmartPointer<vtkDataArray>> _arrays;
  /// The names are those that the arrays hold.
  std::map<std::string_view, std::size_t> _places;
};

}  // namespace vemo
