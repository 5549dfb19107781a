#pragma once

#include "vemoview/render/vtk/PropGroup.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace vemo {

/// An item of a scene, and the props that draw it.
struct ImportedItem {
  std::string name;
  /// Of its node, as JsonPrinter.h describes.
  std::string path;
  bool isVisible = true;
  std::vector<std::unique_ptr<PropGroup>> groups;

  void show(bool isShown);
};

/// The items of a scene that have props.
class ImportedItems {
 public:
  std::size_t size() const { return _items.size(); }
  ImportedItem& operator[](std::size_t index) { return _items[index]; }

  void add(ImportedItem item);

  std::optional<std::size_t> find(const vtkProp* prop) const;

  /// The first with the name, or else with the path or a part of it, such as "group/item".
  std::optional<std::size_t> find(const std::string& nameOrPath) const;

  /// Shows those that are visible in the scene.
  void showVisible();

 private:
  std::vector<ImportedItem> _items;
  std::unordered_map<const vtkProp*, std::size_t> _indices;
};

}  // namespace vemo
