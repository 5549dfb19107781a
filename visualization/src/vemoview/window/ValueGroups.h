#pragma once

#include "vemoview/window/ItemTree.h"

#include <QString>
#include <vector>

namespace vemo {

struct Pick;

/// A property of an item or of a picked point.
struct NamedValue {
  QString name;
  QString value;
};

/// Values that belong together, under a title.
struct ValueGroup {
  QString title;
  std::vector<NamedValue> values;
};

/// What an item is, holds and extends over.
std::vector<ValueGroup> describeItem(const ItemTree& items, int item);

/// Where a picked place lies, and the values of all data arrays there.
std::vector<ValueGroup> describePick(const ItemTree& items, const Pick& pick);

}  // namespace vemo
