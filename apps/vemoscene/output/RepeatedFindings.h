#pragma once

#include <vemo/scenegraph/Finding.h>

#include <set>
#include <string>
#include <utility>

namespace vemo {

/// Finds out which findings of drawing a scene only repeat what reading its archive has
/// reported, or follow from it.
class RepeatedFindings {
 public:
  /// Must be called for all findings in order.
  bool isRepeated(const Finding& finding);

 private:
  std::set<std::pair<FindingCode, std::string>> _ofItems;
  /// Where the nodes of geometries are that have lost an array, once for each array.
  std::multiset<std::string> _withoutArray;
};

}  // namespace vemo
