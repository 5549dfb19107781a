#include "base/NearNames.h"

#include <vemo/base/PrintableText.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace vemo {

namespace {

std::string lowerCase(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return text;
}

/// How many characters must be inserted, left out, replaced or swapped with the next one.
std::size_t editDistance(const std::string& from, const std::string& to) {
  const std::size_t columns = to.size() + 1;
  std::vector<std::size_t> distances((from.size() + 1) * columns);
  const auto at = [&](std::size_t row, std::size_t column) -> std::size_t& {
    return distances[row * columns + column];
  };
  for (std::size_t i = 0; i <= from.size(); ++i) {
    for (std::size_t k = 0; k <= to.size(); ++k) {
      if (i == 0 || k == 0) {
        at(i, k) = i + k;
        continue;
      }
      const std::size_t replaced = at(i - 1, k - 1) + (from[i - 1] == to[k - 1] ? 0 : 1);
      at(i, k) = std::min({at(i - 1, k) + 1, at(i, k - 1) + 1, replaced});
      if (i > 1 && k > 1 && from[i - 1] == to[k - 2] && from[i - 2] == to[k - 1]) {
        at(i, k) = std::min(at(i, k), at(i - 2, k - 2) + 1);
      }
    }
  }
  return distances.back();
}

}  // namespace

std::string suggestNames(const std::string& unknown, const std::set<std::string>& candidates) {
  constexpr std::size_t MOST = 3;
  constexpr std::size_t LONGEST = 200;
  const std::string wanted = lowerCase(unknown);
  const std::size_t limit = std::max(std::size_t{1}, (wanted.size() + 2) / 3);
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string& candidate : candidates) {
    const std::string name = lowerCase(candidate);
    const bool isContained = wanted.size() > 2 && name.find(wanted) != std::string::npos;
    const bool isSimilarInLength = wanted.size() <= LONGEST && name.size() <= wanted.size() + limit &&
                                   wanted.size() <= name.size() + limit;
    const std::size_t distance = isContained ? 1 : isSimilarInLength ? editDistance(wanted, name) : limit + 1;
    if (distance <= limit) {
      near.emplace_back(distance, candidate);
    }
  }
  std::ranges::sort(near);
  std::string text;
  for (std::size_t i = 0; i < std::min(near.size(), MOST); ++i) {
    text += (i == 0                                 ? ": did you mean \""
             : i + 1 == std::min(near.size(), MOST) ? " or \""
                                                    : ", \"") +
            toPrintableLine(near[i].second) + '"';
  }
  return text.empty() ? text : text + '?';
}

}  // namespace vemo
