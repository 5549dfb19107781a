#pragma once

#include <vemo/scenegraph/Finding.h>

#include <set>
#include <string>
#include <utility>

namespace vemo {

/// Tells apart what drawing a scene reports for the first time from what reading its
/// archive has reported in the same words.
class RepeatedFindings {
 public:
  /// Of all findings in order.
  bool isRepeated(const Finding& finding) {
    if (!finding.nodePath.empty()) {
      return _ofItems.contains({finding.code, finding.text});
    }
    _ofItems.emplace(finding.code, finding.text);
    return false;
  }

 private:
  std::set<std::pair<FindingCode, std::string>> _ofItems;
};

}  // namespace vemo
