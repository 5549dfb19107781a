#include "vemoview/window/ItemTree.h"

#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/edit/Items.h>

#include <cstddef>

namespace vemo {

namespace {

std::vector<lum::Drawable*> drawablesIn(const lum::Drawable& owner) {
  std::vector<lum::Drawable*> result;
  for (const auto& node : owner.getNodes()) {
    if (auto* const drawable = dynamic_cast<lum::Drawable*>(node.getObject())) {
      result.push_back(drawable);
    }
  }
  return result;
}

bool isCollection(const lum::Drawable& drawable) {
  return dynamic_cast<const lum::DrawableCollection*>(&drawable) != nullptr;
}

/// An unnamed only drawable of a collection is one item with the collection.
lum::Drawable& contentOf(lum::Drawable& drawable) {
  if (!isCollection(drawable) || drawable.getNodeCount() != 1) {
    return drawable;
  }
  auto* const only = dynamic_cast<lum::Drawable*>(drawable.getNodes()[0].getObject());
  const bool isNameless = only != nullptr && !isCollection(*only) && only->getName() == only->className();
  return isNameless ? *only : drawable;
}

}  // namespace

ItemTree::ItemTree(const lum::SceneNode& scene) {
  addCanvas(scene.hasModelCanvas(), "Model");
  addCanvas(scene.hasForegroundCanvas(), "Foreground");
  addCanvas(scene.hasBackgroundCanvas(), "Background");
  addCanvas(scene.hasOrientationCanvas(), "Orientation");
  for (int item = 0; item < size(); ++item) {
    addChildren(item);
  }
}

void ItemTree::addCanvas(const lum::SceneCanvas* canvas, const std::string& name) {
  auto* const drawables = canvas != nullptr ? canvas->hasDrawableCollection() : nullptr;
  if (drawables != nullptr && drawables->getNodeCount() > 0) {
    const int row = getCanvasCount();
    _canvasNames.push_back(name);
    _numbers.emplace(drawables, size());
    _items.push_back({drawables, drawables, NONE, row, 0, 0});
  }
}

void ItemTree::addChildren(int parent) {
  if ((*this)[parent].content != (*this)[parent].drawable) {
    return;
  }
  const auto children = drawablesIn(*(*this)[parent].drawable);
  Item& item = _items[static_cast<std::size_t>(parent)];
  item.firstChild = size();
  item.childCount = static_cast<int>(children.size());
  for (int row = 0; row < static_cast<int>(children.size()); ++row) {
    add(*children[static_cast<std::size_t>(row)], parent, row);
  }
}

void ItemTree::add(lum::Drawable& drawable, int parent, int row) {
  lum::Drawable& content = contentOf(drawable);
  _numbers.emplace(&drawable, size());
  _numbers.emplace(&content, size());
  _items.push_back({&drawable, &content, parent, row, 0, 0});
}

int ItemTree::find(const lum::Drawable* drawable) const {
  const auto place = _numbers.find(drawable);
  return place == _numbers.end() ? NONE : place->second;
}

const std::string& ItemTree::getName(int item) const {
  const Item& found = (*this)[item];
  return found.parent == NONE ? _canvasNames[static_cast<std::size_t>(item)] : found.drawable->getName();
}

bool ItemTree::isVisible(int item) const {
  return lum::isShown(*(*this)[item].drawable) && lum::isShown(*(*this)[item].content);
}

bool ItemTree::areAncestorsVisible(int item) const {
  const int parent = (*this)[item].parent;
  return parent == NONE || (isVisible(parent) && areAncestorsVisible(parent));
}

void ItemTree::setVisible(int item, bool isVisible) {
  lum::setShown(*(*this)[item].drawable, isVisible);
  // Hiding the outer one hides the inner one, too.
  if (isVisible) {
    lum::setShown(*(*this)[item].content, true);
  }
}

void ItemTree::show(const std::vector<int>& items) {
  for (const int item : items) {
    lum::reveal(*(*this)[item].content);
  }
}

void ItemTree::hide(const std::vector<int>& items) {
  for (const int item : items) {
    setVisible(item, false);
  }
}

void ItemTree::showOnly(const std::vector<int>& items) {
  std::vector<bool> isWanted(_items.size());
  std::vector<bool> isKept(_items.size());
  for (const int item : items) {
    isWanted[static_cast<std::size_t>(item)] = true;
    for (int above = item; above != NONE && !isKept[static_cast<std::size_t>(above)];
         above = (*this)[above].parent) {
      isKept[static_cast<std::size_t>(above)] = true;
    }
  }
  for (int item = 0; item < size(); ++item) {
    const int parent = (*this)[item].parent;
    const auto owner = static_cast<std::size_t>(parent);
    if (isKept[static_cast<std::size_t>(item)]) {
      setVisible(item, true);
    } else if (parent != NONE && isKept[owner] && !isWanted[owner]) {
      setVisible(item, false);
    }
  }
}

void ItemTree::showAll() {
  for (int item = 0; item < size(); ++item) {
    setVisible(item, true);
  }
}

}  // namespace vemo
