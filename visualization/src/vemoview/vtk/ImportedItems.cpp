#include "vemoview/vtk/ImportedItems.h"

#include <vtkProp.h>

#include <algorithm>
#include <utility>

namespace vemo {

void ImportedItem::show(bool isShown) {
  isVisible = isShown;
  for (const auto& group : groups) {
    group->show(isShown);
  }
}

void ImportedItems::add(ImportedItem item) {
  for (const auto& group : item.groups) {
    group->forEachProp([&](vtkProp& prop) { _indices.emplace(&prop, _items.size()); });
  }
  _items.push_back(std::move(item));
}

std::optional<std::size_t> ImportedItems::find(const vtkProp* prop) const {
  const auto found = _indices.find(prop);
  return found == _indices.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::size_t> ImportedItems::find(const std::string& nameOrPath) const {
  auto found = std::ranges::find(_items, nameOrPath, &ImportedItem::name);
  if (found == _items.end()) {
    found = std::ranges::find_if(_items, [this, part = "/" + nameOrPath + "/"](const ImportedItem& item) {
      return ("/" + getPath(item) + "/").find(part) != std::string::npos;
    });
  }
  return found == _items.end() ? std::nullopt : std::optional<std::size_t>(found - _items.begin());
}

void ImportedItems::showVisible() {
  for (ImportedItem& item : _items) {
    item.show(item.isVisible);
  }
}

}  // namespace vemo
