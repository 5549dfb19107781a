#pragma once

#include "vemoview/import/reading/KeyDescription.h"
#include "vemoview/import/reading/ValueReader.h"

#include <string>
#include <vector>

namespace vemo {

/// A table of the page on the scene format.
struct ElementTable {
  /// Empty for the keys of all elements.
  std::string element;
  OnBadValue onBadValue;
  std::vector<KeyText> keys;
};

/// All elements that scene files may hold, and their keys.
std::vector<ElementTable> describeSceneFormat();

}  // namespace vemo
