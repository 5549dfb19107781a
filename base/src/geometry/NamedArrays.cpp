#include "geometry/NamedArrays.h"

#include <vtkCallbackCommand.h>
#include <vtkCommand.h>
#include <vtkDataSetAttributes.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>

#include <utility>

namespace vemo {

namespace {

/// Before the observers of data sets.
constexpr float FIRST = 1.0F;

/// vtkDataSetAttributes copies such a list without comparing names.
class ArrayList final : public vtkDataSetAttributes {
 public:
  static ArrayList* New();
  vtkTypeMacro(ArrayList, vtkDataSetAttributes)

  void append(const std::vector<vtkSmartPointer<vtkDataArray>>& arrays) {
    AllocateArrays(static_cast<int>(arrays.size()));
    for (const auto& array : arrays) {
      ++NumberOfActiveArrays;
      SetArray(NumberOfActiveArrays - 1, array);
    }
  }
};

vtkStandardNewMacro(ArrayList)

/// More take longer to compare than to copy as a list.
constexpr std::size_t FEW = 4;

}  // namespace

void addArrays(const std::vector<vtkSmartPointer<vtkDataArray>>& arrays, vtkDataSetAttributes& data) {
  if (arrays.size() <= FEW) {
    for (const auto& array : arrays) {
      data.AddArray(array);
    }
    return;
  }
  const vtkNew<ArrayList> list;
  list->append(arrays);
  const vtkNew<vtkCallbackCommand> silence;
  silence->SetCallback([](vtkObject*, unsigned long, void*, void*) {});
  silence->AbortFlagOnExecuteOn();
  // Otherwise a data set looks through all of them whenever it gets another one.
  const unsigned long observer = data.AddObserver(vtkCommand::ModifiedEvent, silence, FIRST);
  data.ShallowCopy(list);
  data.RemoveObserver(observer);
  data.Modified();
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
