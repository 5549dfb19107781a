#pragma once

#include <algorithm>
#include <cstddef>
#include <map>

namespace vemo {

/// When to look for entries of a map that nobody uses any more: each time that it has doubled, so that this
/// takes no more time than adding to it.
class Expiry {
 public:
  template <class Map, class Condition>
  void drop(Map& map, const Condition& isExpired) {
    constexpr std::size_t LEAST = 100;
    if (map.size() >= std::max(LEAST, 2 * _kept)) {
      std::erase_if(map, [&](const auto& entry) { return isExpired(entry.second); });
      _kept = map.size();
    }
  }

 private:
  std::size_t _kept = 0;
};

}  // namespace vemo
