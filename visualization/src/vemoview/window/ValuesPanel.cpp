#include "vemoview/window/ValuesPanel.h"

#include "vemoview/window/ItemText.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QStringList>

namespace vemo {

namespace {

enum Column { NAME, VALUE };

QTreeWidgetItem* makeTitle(const QString& title) {
  auto* const row = new QTreeWidgetItem({title});
  QFont font = row->font(NAME);
  font.setBold(true);
  row->setFont(NAME, font);
  row->setFlags(Qt::ItemIsEnabled);
  return row;
}

QTreeWidgetItem* makeRow(const NamedValue& named) {
  auto* const row = new QTreeWidgetItem({named.name, named.value});
  row->setToolTip(NAME, toToolTip(named.name));
  row->setToolTip(VALUE, toToolTip(named.value));
  return row;
}

}  // namespace

ValuesPanel::ValuesPanel(QWidget* parent) : QTreeWidget(parent) {
  setObjectName("values");
  setHeaderLabels({"Name", "Value"});
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setIndentation(0);
  setUniformRowHeights(true);
  setAlternatingRowColors(true);
  setSelectionMode(ExtendedSelection);
  header()->setSectionResizeMode(NAME, QHeaderView::ResizeToContents);
  auto* const copy = new QAction("Copy", this);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, [this] { copySelection(); });
  addAction(copy);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  showValues({});
}

void ValuesPanel::showValues(const std::vector<ValueGroup>& groups) {
  clear();
  for (const ValueGroup& group : groups) {
    QTreeWidgetItem* const title = makeTitle(group.title);
    addTopLevelItem(title);
    title->setFirstColumnSpanned(true);
    for (const NamedValue& named : group.values) {
      title->addChild(makeRow(named));
    }
    title->setExpanded(true);
  }
  if (groups.empty()) {
    QTreeWidgetItem* const hint = new QTreeWidgetItem({"Click on the model to read its values."});
    hint->setFlags(Qt::NoItemFlags);
    addTopLevelItem(hint);
    hint->setFirstColumnSpanned(true);
  }
}

/// Rows from top to bottom, one line each with a tab between name and value, as
/// spreadsheets accept it.
void ValuesPanel::copySelection() const {
  QStringList lines;
  for (QTreeWidgetItem* row = topLevelItem(0); row != nullptr; row = itemBelow(row)) {
    if (row->isSelected()) {
      lines << row->text(NAME) + '\t' + row->text(VALUE);
    }
  }
  if (!lines.isEmpty()) {
    QApplication::clipboard()->setText(lines.join('\n'));
  }
}

}  // namespace vemo
