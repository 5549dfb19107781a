#pragma once

#include "vemoview/window/ItemTree.h"

#include <QWidget>
#include <functional>
#include <vector>

class QLineEdit;
class QPushButton;
class QSortFilterProxyModel;
class QTreeView;

namespace vemo {

class ItemTreeModel;

/// The tree of items with check boxes for their visibility, and a filter to find,
/// show and hide items by name.
class ItemsPanel final : public QWidget {
 public:
  /// Notifications.
  struct Listener {
    /// Items were shown or hidden in the scene.
    std::function<void()> visibilityChanged;
    /// The current item has changed; NONE if there is none.
    std::function<void(int)> currentChanged;
  };

  /// The items must outlive the panel.
  ItemsPanel(ItemTree& items, Listener listener, QWidget* parent);

  /// The selected items.
  std::vector<int> getSelected() const;
  /// Selects an item's row and scrolls to it; NONE clears the selection. Does not
  /// notify.
  void select(int item);

  void showItems(const std::vector<int>& items);
  void hideItems(const std::vector<int>& items);
  void showOnly(const std::vector<int>& items);
  void showAll();

  /// Shows items that were added and visibilities that were changed elsewhere, and notifies.
  void followScene(const lum::SceneNode& scene);

 private:
  void makeTree();
  void makeButtons();
  void filter(const QString& text);
  void expandFewRows();
  /// The items that the buttons act on: all that match the filter, or the selected
  /// ones when there is no filter.
  std::vector<int> getTargetItems() const;
  void labelButtons();
  void announceVisibility();

  ItemTree& _items;
  Listener _listener;
  ItemTreeModel* _model;
  QSortFilterProxyModel* _filtered;
  QLineEdit* _filter;
  QTreeView* _tree;
  QPushButton* _show;
  QPushButton* _hide;
  bool _isQuiet = false;
};

}  // namespace vemo
