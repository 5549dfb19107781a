#include "vemoview/window/ItemsPanel.h"

#include "vemoview/window/ItemText.h"
#include "vemoview/window/ItemTreeModel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>
#include <set>
#include <utility>

namespace vemo {

namespace {

/// Levels are expanded at the start up to this many rows.
constexpr int FEW_ROWS = 200;

/// Between the parts of the panel, in pixels.
constexpr int MARGIN = 4;

}  // namespace

ItemsPanel::ItemsPanel(ItemTree& items, Listener listener, QWidget* parent)
    : QWidget(parent),
      _items(items),
      _listener(std::move(listener)),
      _model(new ItemTreeModel(
          items, [this] { _listener.visibilityChanged(); }, this)),
      _filtered(new QSortFilterProxyModel(this)),
      _filter(new QLineEdit(this)),
      _tree(new QTreeView(this)),
      _show(new QPushButton(this)),
      _hide(new QPushButton(this)) {
  _filter->setObjectName("filter");
  _filter->setPlaceholderText("Filter by name");
  _filter->setClearButtonEnabled(true);
  connect(_filter, &QLineEdit::textChanged, this, [this](const QString& text) { filter(text); });
  makeTree();
  makeButtons();
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(_show);
  buttons->addWidget(_hide);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, MARGIN, 0, MARGIN);
  rows->setSpacing(MARGIN);
  rows->addWidget(_filter);
  rows->addWidget(_tree);
  rows->addLayout(buttons);
  expandFewRows();
  labelButtons();
}

void ItemsPanel::makeTree() {
  _filtered->setSourceModel(_model);
  _filtered->setFilterCaseSensitivity(Qt::CaseInsensitive);
  _filtered->setRecursiveFilteringEnabled(true);
  _tree->setObjectName("items");
  _tree->setModel(_filtered);
  _tree->setUniformRowHeights(true);
  _tree->setAlternatingRowColors(true);
  _tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
  _tree->header()->setStretchLastSection(false);
  _tree->header()->setSectionResizeMode(ItemTreeModel::NAME, QHeaderView::Stretch);
  _tree->header()->setSectionResizeMode(ItemTreeModel::KIND, QHeaderView::ResizeToContents);
  _tree->header()->setSectionResizeMode(ItemTreeModel::CELLS, QHeaderView::ResizeToContents);
  const QItemSelectionModel* const selection = _tree->selectionModel();
  connect(selection, &QItemSelectionModel::selectionChanged, this, [this] { labelButtons(); });
  connect(selection, &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
    if (!_isQuiet) {
      const QModelIndex index = _filtered->mapToSource(current);
      _listener.currentChanged(index.isValid() ? ItemTreeModel::itemAt(index) : ItemTree::NONE);
    }
  });
}

void ItemsPanel::makeButtons() {
  _show->setObjectName("show");
  _hide->setObjectName("hide");
  connect(_show, &QPushButton::clicked, this, [this] { showItems(getTargetItems()); });
  connect(_hide, &QPushButton::clicked, this, [this] { hideItems(getTargetItems()); });
}

void ItemsPanel::expandFewRows() {
  int rows = _items.getCanvasCount();
  for (int item = 0; item < _items.size(); ++item) {
    const int children = _items[item].childCount;
    if (rows + children > FEW_ROWS) {
      return;
    }
    rows += children;
    _tree->expand(_filtered->mapFromSource(_model->indexOf(item)));
  }
}

void ItemsPanel::filter(const QString& text) {
  _filtered->setFilterFixedString(text);
  if (text.isEmpty()) {
    // Filtering collapsed the rows without a match.
    expandFewRows();
  } else if (getTargetItems().size() <= FEW_ROWS) {
    _tree->expandAll();
  }
  labelButtons();
}

std::vector<int> ItemsPanel::getSelected() const {
  std::vector<int> items;
  for (const QModelIndex& index : _tree->selectionModel()->selectedRows()) {
    items.push_back(ItemTreeModel::itemAt(_filtered->mapToSource(index)));
  }
  return items;
}

std::vector<int> ItemsPanel::getTargetItems() const {
  if (_filter->text().isEmpty()) {
    return getSelected();
  }
  std::vector<int> items;
  for (int item = 0; item < _items.size(); ++item) {
    if (nameOf(_items, item).contains(_filter->text(), Qt::CaseInsensitive)) {
      items.push_back(item);
    }
  }
  return items;
}

void ItemsPanel::labelButtons() {
  const auto count = getTargetItems().size();
  const bool isFiltered = !_filter->text().isEmpty();
  const QString target =
      isFiltered ? countText(static_cast<std::int64_t>(count)) + (count == 1 ? " match" : " matches")
                 : QString("selected");
  _show->setText("Show " + target);
  _hide->setText("Hide " + target);
  _show->setEnabled(count > 0);
  _hide->setEnabled(count > 0);
}

void ItemsPanel::select(int item) {
  const QScopedValueRollback quiet(_isQuiet, true);
  const QModelIndex index = _filtered->mapFromSource(_model->indexOf(item));
  if (index.isValid()) {
    _tree->setCurrentIndex(index);
    _tree->scrollTo(index);
  } else {
    _tree->selectionModel()->clear();
  }
}

void ItemsPanel::followScene(const lum::SceneNode& scene) {
  const QScopedValueRollback quiet(_isQuiet, true);
  std::set<const lum::Drawable*> formerCanvases;
  for (int canvas = 0; canvas < _items.getCanvasCount(); ++canvas) {
    formerCanvases.insert(_items[canvas].drawable);
  }
  _model->followScene(scene);
  for (int canvas = 0; canvas < _items.getCanvasCount(); ++canvas) {
    if (!formerCanvases.contains(_items[canvas].drawable)) {
      _tree->expand(_filtered->mapFromSource(_model->indexOf(canvas)));
    }
  }
  announceVisibility();
}

void ItemsPanel::announceVisibility() {
  _model->announceVisibility();
  _listener.visibilityChanged();
}

void ItemsPanel::showItems(const std::vector<int>& items) {
  _items.show(items);
  announceVisibility();
}

void ItemsPanel::hideItems(const std::vector<int>& items) {
  _items.hide(items);
  announceVisibility();
}

void ItemsPanel::showOnly(const std::vector<int>& items) {
  _items.showOnly(items);
  announceVisibility();
}

void ItemsPanel::showAll() {
  _items.showAll();
  announceVisibility();
}

}  // namespace vemo
