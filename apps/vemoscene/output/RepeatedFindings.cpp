#include "output/RepeatedFindings.h"

#include <algorithm>

namespace vemo {

namespace {

/// The beginning of the paths of a geometry's nodes, by the path of one of its arrays:
/// "scene/wing/pressure".
std::string nodesOfGeometry(const std::string& arrayPath) {
  const std::size_t begin = arrayPath.find('/');
  const std::size_t end = arrayPath.rfind('/');
  return "ModelCanvas/DrawableCollection" + arrayPath.substr(begin, end + 1 - begin);
}

}  // namespace

bool RepeatedFindings::isRepeated(const Finding& finding) {
  if (finding.nodePath.empty()) {
    _ofItems.emplace(finding.code, finding.text);
    if (finding.code == FindingCode::ARRAY_LEFT_OUT && finding.itemPath.find('/') != std::string::npos) {
      _withoutArray.insert(nodesOfGeometry(finding.itemPath));
    }
    return false;
  }
  if (finding.code == FindingCode::POINTS_NOT_SCALED) {
    const auto cause = std::ranges::find_if(
        _withoutArray, [&](const std::string& nodes) { return finding.nodePath.starts_with(nodes); });
    if (cause != _withoutArray.end()) {
      _withoutArray.erase(cause);
      return true;
    }
  }
  return _ofItems.contains({finding.code, finding.text});
}

}  // namespace vemo
