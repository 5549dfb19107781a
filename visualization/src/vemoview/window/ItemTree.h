#pragma once

#include <vemo/window/Export.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace lum {
class Drawable;
class SceneCanvas;
class SceneNode;
}  // namespace lum

namespace vemo {

/// What a scene consists of, as a user sees it: numbered items, each either a
/// canvas, or a drawable in another item. A drawable that only gives a name to
/// a single one of a kind is one item with it. The children of an item have
/// consecutive numbers, the canvases the first. Which items are visible is kept
/// in the scene, which must be there as long as this.
class ItemTree {
 public:
  static constexpr int NONE = -1;

  struct Item {
    lum::Drawable* drawable;
    /// The single drawable that it names; else the drawable itself.
    lum::Drawable* content;
    /// NONE for a canvas.
    int parent;
    /// The place among the parent's children, or the canvases.
    int row;
    int firstChild;
    int childCount;
  };

  explicit ItemTree(const lum::SceneNode& scene);

  int size() const { return static_cast<int>(_items.size()); }
  const Item& operator[](int item) const { return _items[static_cast<std::size_t>(item)]; }
  int getCanvasCount() const { return static_cast<int>(_canvasNames.size()); }

  /// The item that a drawable is, or is the content of; NONE if there is none.
  int find(const lum::Drawable* drawable) const;

  /// As it stands in the scene; may be empty, and no UTF-8.
  const std::string& getName(int item) const;

  /// Whether the item itself is visible.
  bool isVisible(int item) const;
  /// Whether all that it stands in is visible.
  bool isInVisible(int item) const;

  void setVisible(int item, bool isVisible);
  /// Shows items, and of what they stand in, where that is hidden, nothing else.
  void show(const std::vector<int>& items);
  void hide(const std::vector<int>& items);
  /// Of the canvases that the items belong to, nothing else stays visible.
  void showOnly(const std::vector<int>& items);
  void showAll();

 private:
  void addCanvas(const lum::SceneCanvas* canvas, const std::string& name);
  void addChildren(int parent);
  void add(lum::Drawable& drawable, int parent, int row);
  void reveal(int item);

  std::vector<std::string> _canvasNames;
  std::vector<Item> _items;
  std::unordered_map<const lum::Drawable*, int> _numbers;
};

}  // namespace vemo
