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

/// A scene's items as a user sees them, numbered: each is a canvas, or a drawable
/// in another item. A collection that only names the one drawable in it is one
/// item with it. Canvases have the first numbers, the children of an item
/// consecutive ones. Visibility is stored in the scene, which must outlive the
/// tree.
class ItemTree {
 public:
  static constexpr int NONE = -1;

  struct Item {
    lum::Drawable* drawable;
    /// The only drawable in a collection that names it, otherwise the same drawable.
    lum::Drawable* content;
    /// NONE for a canvas.
    int parent;
    /// The index among the parent's children, or among the canvases.
    int row;
    int firstChild;
    int childCount;
  };

  explicit ItemTree(const lum::SceneNode& scene);

  int size() const { return static_cast<int>(_items.size()); }
  const Item& operator[](int item) const { return _items[static_cast<std::size_t>(item)]; }
  int getCanvasCount() const { return static_cast<int>(_canvasNames.size()); }

  /// The item of a drawable; NONE if there is none.
  int find(const lum::Drawable* drawable) const;

  /// As in the scene: may be empty or invalid UTF-8.
  const std::string& getName(int item) const;

  /// Whether the item itself is visible.
  bool isVisible(int item) const;
  /// Whether all items that contain it are visible.
  bool areAncestorsVisible(int item) const;

  void setVisible(int item, bool isVisible);
  /// Shows items. Hidden items that contain them are shown, too, but without their
  /// other children.
  void show(const std::vector<int>& items);
  void hide(const std::vector<int>& items);
  /// Hides all other items in the canvases of these items.
  void showOnly(const std::vector<int>& items);
  void showAll();

 private:
  void addCanvas(const lum::SceneCanvas* canvas, const std::string& name);
  void addChildren(int parent);
  void add(lum::Drawable& drawable, int parent, int row);

  std::vector<std::string> _canvasNames;
  std::vector<Item> _items;
  std::unordered_map<const lum::Drawable*, int> _numbers;
};

}  // namespace vemo
