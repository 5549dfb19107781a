#include "vemoview/vtk/ItemPaths.h"

#include <algorithm>

namespace vemo {

std::string ItemPaths::get(std::size_t path) const {
  std::vector<const std::string*> texts;
  for (std::size_t i = path; i != ROOT; i = _steps.at(i).owner) {
    texts.push_back(&_steps.at(i).text);
  }
  std::reverse(texts.begin(), texts.end());
  std::string result;
  for (const std::string* const text : texts) {
    result += result.empty() ? "" : "/";
    result += *text;
  }
  return result;
}

}  // namespace vemo
