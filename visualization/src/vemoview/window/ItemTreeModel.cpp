#include "vemoview/window/ItemTreeModel.h"

#include "vemoview/window/ItemText.h"
#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/inspect/GeometryCounts.h>

#include <QApplication>
#include <QPalette>
#include <utility>
#include <vector>

namespace vemo {

namespace {

int alignmentOf(int column) {
  return static_cast<int>((column == ItemTreeModel::CELLS ? Qt::AlignRight : Qt::AlignLeft) |
                          Qt::AlignVCenter);
}

}  // namespace

ItemTreeModel::ItemTreeModel(ItemTree& items, std::function<void()> whenToggled, QObject* parent)
    : QAbstractItemModel(parent), _items(items), _whenToggled(std::move(whenToggled)) {}

QModelIndex ItemTreeModel::indexOf(int item) const {
  return item == ItemTree::NONE ? QModelIndex()
                                : createIndex(_items[item].row, NAME, static_cast<quintptr>(item));
}

void ItemTreeModel::followScene(const lum::SceneNode& scene) {
  ItemTree next(scene);
  if (next.size() == _items.size()) {
    return;
  }
  emit layoutAboutToBeChanged();
  const QModelIndexList former = persistentIndexList();
  std::vector<const lum::Drawable*> drawables;
  for (const QModelIndex& index : former) {
    drawables.push_back(_items[itemAt(index)].drawable);
  }
  _items = std::move(next);
  for (int i = 0; i < former.size(); ++i) {
    const QModelIndex first = indexOf(_items.find(drawables[static_cast<std::size_t>(i)]));
    changePersistentIndex(former[i], first.siblingAtColumn(former[i].column()));
  }
  emit layoutChanged();
}

/// One signal for each parent, for all of its rows.
void ItemTreeModel::announceVisibility() {
  for (int first = 0; first < _items.size();) {
    const int parent = _items[first].parent;
    const int count = parent == ItemTree::NONE ? _items.getCanvasCount() : _items[parent].childCount;
    const int last = first + count - 1;
    emit dataChanged(indexOf(first), indexOf(last).siblingAtColumn(COLUMN_COUNT - 1),
                     {Qt::CheckStateRole, Qt::ForegroundRole});
    first = last + 1;
  }
}

int ItemTreeModel::firstIn(const QModelIndex& parent) const {
  return parent.isValid() ? _items[itemAt(parent)].firstChild : 0;
}

QModelIndex ItemTreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) {
    return {};
  }
  const int item = firstIn(parent) + row;
  return createIndex(row, column, static_cast<quintptr>(item));
}

QModelIndex ItemTreeModel::parent(const QModelIndex& index) const {
  return index.isValid() ? indexOf(_items[itemAt(index)].parent) : QModelIndex();
}

int ItemTreeModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) {
    return _items.getCanvasCount();
  }
  return parent.column() == NAME ? _items[itemAt(parent)].childCount : 0;
}

int ItemTreeModel::columnCount(const QModelIndex&) const {
  return COLUMN_COUNT;
}

Qt::ItemFlags ItemTreeModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
  return index.isValid() && index.column() == NAME ? flags | Qt::ItemIsUserCheckable : flags;
}

QVariant ItemTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
  static constexpr const char* TITLES[] = {"Name", "Kind", "Cells"};
  if (orientation != Qt::Horizontal || section < 0 || section >= COLUMN_COUNT) {
    return {};
  }
  if (role == Qt::TextAlignmentRole) {
    return alignmentOf(section);
  }
  return role == Qt::DisplayRole ? QVariant(TITLES[section]) : QVariant();
}

QString ItemTreeModel::textAt(int item, int column) const {
  const lum::Drawable& content = *_items[item].content;
  switch (column) {
    case NAME:
      return nameOf(_items, item);
    case KIND:
      return _items[item].parent == ItemTree::NONE ? "Canvas" : kindOf(content);
    default: {
      const auto cells = lum::GeometryCounts::ofDrawable(content).getCells();
      return cells == 0 ? QString() : countText(cells);
    }
  }
}

QVariant ItemTreeModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) {
    return {};
  }
  const int item = itemAt(index);
  switch (role) {
    case Qt::DisplayRole:
      return textAt(item, index.column());
    case Qt::ToolTipRole:
      return toToolTip(pathOf(_items, item));
    case Qt::TextAlignmentRole:
      return alignmentOf(index.column());
    case Qt::CheckStateRole:
      return index.column() == NAME ? QVariant(_items.isVisible(item) ? Qt::Checked : Qt::Unchecked)
                                    : QVariant();
    case Qt::ForegroundRole:
      return _items.areAncestorsVisible(item)
                 ? QVariant()
                 : QApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    default:
      return {};
  }
}

bool ItemTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::CheckStateRole) {
    return false;
  }
  _items.setVisible(itemAt(index), value.toInt() == Qt::Checked);
  announceVisibility();
  _whenToggled();
  return true;
}

}  // namespace vemo
