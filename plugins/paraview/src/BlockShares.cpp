#include "BlockShares.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>

namespace vemo {

namespace {

class Shares {
 public:
  Shares(const SceneParts& parts, int processes)
      : _parts(parts), _holders(parts.arrayBytes.size()), _loads(static_cast<std::size_t>(processes), 0) {
    for (int process = 0; process < processes; ++process) {
      _byLoad.emplace(0, process);
    }
  }

  std::uint64_t sizeOf(std::size_t part) const {
    const auto& arrays = _parts.parts[part].arrays;
    return std::transform_reduce(arrays.begin(), arrays.end(), std::uint64_t{0}, std::plus<>(),
                                 [this](std::size_t array) { return _parts.arrayBytes[array]; });
  }

  /// Gives the part to the process that then has the least; returns that.
  int add(std::size_t part) {
    std::set<int> candidates{_byLoad.begin()->second};
    for (const std::size_t array : _parts.parts[part].arrays) {
      candidates.insert(_holders[array].begin(), _holders[array].end());
    }
    std::pair<std::uint64_t, int> best{UINT64_MAX, 0};
    for (const int process : candidates) {
      best = std::min(best, {loadWith(part, process), process});
    }
    take(part, best.second, best.first);
    return best.second;
  }

 private:
  std::uint64_t loadWith(std::size_t part, int process) const {
    std::uint64_t load = _loads[static_cast<std::size_t>(process)];
    for (const std::size_t array : _parts.parts[part].arrays) {
      load += _holders[array].contains(process) ? 0 : _parts.arrayBytes[array];
    }
    return load;
  }

  void take(std::size_t part, int process, std::uint64_t load) {
    std::uint64_t& present = _loads[static_cast<std::size_t>(process)];
    _byLoad.erase({present, process});
    present = load;
    _byLoad.emplace(present, process);
    for (const std::size_t array : _parts.parts[part].arrays) {
      _holders[array].insert(process);
    }
  }

  const SceneParts& _parts;
  /// Of each array, the processes that read it.
  std::vector<std::set<int>> _holders;
  std::vector<std::uint64_t> _loads;
  std::set<std::pair<std::uint64_t, int>> _byLoad;
};

}  // namespace

std::vector<int> shareParts(const SceneParts& parts, const std::vector<std::size_t>& chosen, int processes) {
  Shares shares(parts, processes);
  std::vector<std::size_t> order(chosen.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  // The largest first: the small ones then fill what is uneven.
  std::ranges::stable_sort(order, std::greater<>(), [&](std::size_t i) { return shares.sizeOf(chosen[i]); });
  std::vector<int> owners(chosen.size());
  for (const std::size_t i : order) {
    owners[i] = shares.add(chosen[i]);
  }
  return owners;
}

}  // namespace vemo
