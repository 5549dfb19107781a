#pragma once

#include "vemoview/window/ItemTree.h"

#include <QString>
#include <vector>

namespace vemo {

struct Pick;

/// A property of an item or of a picked point.
struct Fact {
  QString name;
  QString value;
};

/// Facts that belong together, under a title.
struct FactGroup {
  QString title;
  std::vector<Fact> facts;
};

/// What an item is, holds and extends over.
std::vector<FactGroup> describeItem(const ItemTree& items, int item);

/// Where a picked place lies, and the values of all data arrays there.
std::vector<FactGroup> describePick(const ItemTree& items, const Pick& pick);

}  // namespace vemo
