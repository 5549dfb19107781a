#pragma once

#include "vemoview/render/vtk/PropGroup.h"
#include "vemoview/vtk/ItemPaths.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vemo {

/// An item of a scene, and the props that draw it.
struct ImportedItem {
  std::string name;
  /// Its number.
  std::size_t path = ItemPaths::ROOT;
  bool isVisible = true;
  std::vector<std::unique_ptr<PropGroup>> groups;

  void show(bool isShown);
};

/// The items of a scene that have props.
class ImportedItems {
 public:
  ImportedItems() = default;
  explicit ImportedItems(ItemPaths paths) : _paths(std::move(paths)) {}

  std::size_t size() const { return _items.size(); }
  ImportedItem& operator[](std::size_t index) { return _items[index]; }

  void add(ImportedItem item);

  /// Of its node.
  std::string getPath(const ImportedItem& item) const { return _paths.get(item.path); }

  std::optional<std::size_t> find(const vtkProp* prop) const;

  /// The first with the name, or else with the path or a part of it, such as "group/item".
  std::optional<std::size_t> find(const std::string& nameOrPath) const;

  /// Shows those that are visible in the scene.
  void showVisible();

 private:
  ItemPaths _paths;
  std::vector<ImportedItem> _items;
  std::unordered_map<const vtkProp*, std::size_t> _indices;
};

}  // namespace vemo
