#include "scenegraph/inspect/Matching.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <unordered_map>

namespace lum {

namespace {

struct KeyHash {
  std::size_t operator()(const Matching::Key& key) const {
    constexpr std::size_t FACTOR = 0x9E3779B97F4A7C15U;
    const std::hash<std::string_view> hash;
    return hash(key.first) * FACTOR + hash(key.second);
  }
};

}  // namespace

Matching::Matching(const std::vector<Key>& left, const std::vector<Key>& right) {
  if (left == right) {
    _counterparts.resize(left.size());
    std::iota(_counterparts.begin(), _counterparts.end(), std::size_t{0});
  } else {
    findCounterparts(left, right);
  }
}

void Matching::findCounterparts(const std::vector<Key>& left, const std::vector<Key>& right) {
  // Of each key the first place on the right that is free, and from each place
  // the next one of its key.
  std::unordered_map<Key, std::size_t, KeyHash> free;
  std::vector<std::size_t> next(right.size(), NONE);
  for (std::size_t i = right.size(); i-- > 0;) {
    const auto [place, isLast] = free.try_emplace(right[i], i);
    if (!isLast) {
      next[i] = std::exchange(place->second, i);
    }
  }
  std::vector<bool> isTaken(right.size(), false);
  for (const Key& key : left) {
    const auto place = free.find(key);
    const std::size_t counterpart = place != free.end() ? place->second : NONE;
    if (counterpart != NONE) {
      isTaken[counterpart] = true;
      place->second = next[counterpart];
    }
    _counterparts.push_back(counterpart);
  }
  for (std::size_t i = 0; i < right.size(); ++i) {
    if (!isTaken[i]) {
      _onlyRight.push_back(i);
    }
  }
}

std::vector<std::size_t> Matching::findMoved() const {
  // The longest rising subsequence of the counterparts stays where it is. `ends`
  // has, for each length, the element that ends such a subsequence lowest.
  std::vector<std::size_t> ends;
  std::vector<std::size_t> previous(_counterparts.size(), NONE);
  const auto counterpartOf = [this](std::size_t i) { return _counterparts[i]; };
  for (std::size_t i = 0; i < _counterparts.size(); ++i) {
    if (_counterparts[i] == NONE) {
      continue;
    }
    const auto end = std::ranges::lower_bound(ends, _counterparts[i], {}, counterpartOf);
    previous[i] = end != ends.begin() ? *std::prev(end) : NONE;
    if (end != ends.end()) {
      *end = i;
    } else {
      ends.push_back(i);
    }
  }
  std::vector<bool> isInPlace(_counterparts.size(), false);
  for (std::size_t i = ends.empty() ? NONE : ends.back(); i != NONE; i = previous[i]) {
    isInPlace[i] = true;
  }
  std::vector<std::size_t> moved;
  for (std::size_t i = 0; i < _counterparts.size(); ++i) {
    if (_counterparts[i] != NONE && !isInPlace[i]) {
      moved.push_back(i);
    }
  }
  return moved;
}

}  // namespace lum
