#pragma once

#include "vemoview/window/ValueGroups.h"

#include <QTreeWidget>
#include <vector>

namespace vemo {

/// A table of names and values in groups. The selected rows can be copied.
class ValuesPanel final : public QTreeWidget {
 public:
  explicit ValuesPanel(QWidget* parent);

  /// Replaces the content; an explanation is shown when it is empty.
  void showValues(const std::vector<ValueGroup>& groups);

 private:
  void copySelection() const;
};

}  // namespace vemo
