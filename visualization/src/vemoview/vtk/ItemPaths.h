#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace vemo {

/// Paths that are made when they are asked for. What they have in common is kept once: very many items
/// may be in an assembly with a long name.
class ItemPaths {
 public:
  static constexpr std::size_t ROOT = static_cast<std::size_t>(-1);

  /// A path of one more step than that of an owner, or than the root's. Returns its number.
  std::size_t add(std::size_t owner, std::string step) {
    _steps.push_back({owner, std::move(step)});
    return _steps.size() - 1;
  }

  /// As JsonPrinter.h describes it.
  std::string get(std::size_t path) const;

 private:
  struct Step {
    std::size_t owner;
    std::string text;
  };

  std::vector<Step> _steps;
};

}  // namespace vemo
