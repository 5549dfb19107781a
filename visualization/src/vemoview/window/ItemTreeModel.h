#pragma once

#include "vemoview/window/ItemTree.h"

#include <QAbstractItemModel>
#include <functional>

namespace vemo {

/// An ItemTree for Qt's views: a row per item, whose check box is the visibility
/// of the item itself.
class ItemTreeModel final : public QAbstractItemModel {
 public:
  enum Column { NAME, KIND, CELLS, COLUMN_COUNT };

  /// The items must outlive the model. Calls `whenToggled` after the user toggles a
  /// check box.
  ItemTreeModel(ItemTree& items, std::function<void()> whenToggled, QObject* parent);

  /// The item of a valid index.
  static int itemAt(const QModelIndex& index) { return static_cast<int>(index.internalId()); }
  QModelIndex indexOf(int item) const;

  /// Reads the items again if items were added to the scene. Views keep what is selected and expanded.
  void followScene(const lum::SceneNode& scene);

  /// Notifies the views that visibilities may have changed.
  void announceVisibility();

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  QString textAt(int item, int column) const;
  /// The number of an item's first child, or of the first canvas.
  int firstIn(const QModelIndex& parent) const;

  ItemTree& _items;
  std::function<void()> _whenToggled;
};

}  // namespace vemo
