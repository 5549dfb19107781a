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

/// Lists the items with a check box for each one's visibility, and finds, shows
/// and hides them by name.
class ItemsPanel final : public QWidget {
 public:
  /// What happens here that concerns others.
  struct Listener {
    /// Items were shown or hidden in the scene.
    std::function<void()> visibilityChanged;
    /// Another item is the current one; NONE if none is.
    std::function<void(int)> currentChanged;
  };

  /// The items must be there as long as the panel.
  ItemsPanel(ItemTree& items, Listener listener, QWidget* parent);

  /// The rows that are marked.
  std::vector<int> getSelected() const;
  /// Marks an item's row and brings it into sight; NONE marks none. Tells
  /// nobody.
  void select(int item);

  void showItems(const std::vector<int>& items);
  void hideItems(const std::vector<int>& items);
  void showOnly(const std::vector<int>& items);
  void showAll();

 private:
  void makeTree();
  void makeButtons();
  void filter(const QString& text);
  void expandFewRows();
  /// The items that the buttons are for: all whose name has the filter's text,
  /// or, without one, the marked.
  std::vector<int> getMeant() const;
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
