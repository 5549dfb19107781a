#include "geometry/data/NamedArrays.h"

#include "geometry/data/SharedData.h"

#include <vtkDataSetAttributes.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>

#include <set>
#include <utility>

namespace vemo {

namespace {

/// vtkDataSetAttributes copies such a list without comparing names.
class ArrayList final : public vtkDataSetAttributes {
 public:
  static ArrayList* New();
  vtkTypeMacro(ArrayList, vtkDataSetAttributes)

  void append(const std::vector<vtkSmartPointer<vtkDataArray>>& arrays) {
    const std::set<std::string_view> held = getNames();
    AllocateArrays(NumberOfActiveArrays + static_cast<int>(arrays.size()));
    for (const auto& array : arrays) {
      if (!held.contains(NamedArrays::nameOf(*array))) {
        ++NumberOfActiveArrays;
        SetArray(NumberOfActiveArrays - 1, array);
      }
    }
  }

 private:
  std::set<std::string_view> getNames() {
    std::set<std::string_view> names;
    for (int i = 0; i < GetNumberOfArrays(); ++i) {
      const char* const name = GetAbstractArray(i)->GetName();
      names.emplace(name != nullptr ? name : "");
    }
    return names;
  }
};

vtkStandardNewMacro(ArrayList)

/// More take longer to compare than to copy as a list.
constexpr std::size_t FEW = 4;

}  // namespace

void addArrays(const std::vector<vtkSmartPointer<vtkDataArray>>& arrays, vtkDataSetAttributes& data) {
  if (arrays.size() <= FEW) {
    for (const auto& array : arrays) {
      if (data.HasArray(array->GetName()) == 0) {
        data.AddArray(array);
      }
    }
    return;
  }
  const vtkNew<ArrayList> list;
  list->ShallowCopy(&data);
  list->append(arrays);
  shareArrays(*list, data);
}

std::string_view NamedArrays::nameOf(vtkDataArray& array) {
  const char* const name = array.GetName();
  return name != nullptr ? name : "";
}

void NamedArrays::put(vtkDataArray& array) {
  const std::string_view name = nameOf(array);
  if (auto known = _places.extract(name); !known.empty()) {
    _arrays[known.mapped()] = &array;
    known.key() = name;
    _places.insert(std::move(known));
  } else {
    _places.emplace(name, _arrays.size());
    _arrays.emplace_back(&array);
  }
}

std::optional<std::size_t> NamedArrays::find(std::string_view name) const {
  const auto place = _places.find(name);
  return place != _places.end() ? std::optional(place->second) : std::nullopt;
}

std::vector<vtkSmartPointer<vtkDataArray>> NamedArrays::release() {
  _places.clear();
  return std::exchange(_arrays, {});
}

}  // namespace vemo
