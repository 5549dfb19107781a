#pragma once

#include <vemo/scenegraph/Export.h>

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace lum {

/// Which elements of two lists belong together: the first of a key on the left
/// and the first of that key on the right, the second and the second, and so on.
class VEMO_SCENEGRAPH_EXPORT Matching {
 public:
  /// For instance class and name.
  using Key = std::pair<std::string_view, std::string_view>;
  static constexpr std::size_t NONE = static_cast<std::size_t>(-1);

  Matching(const std::vector<Key>& left, const std::vector<Key>& right);

  /// For each element on the left its place on the right, or NONE.
  const std::vector<std::size_t>& getCounterparts() const { return _counterparts; }

  /// The places on the right of those without a counterpart, in ascending order.
  const std::vector<std::size_t>& getOnlyRight() const { return _onlyRight; }

  /// The places on the left of as few elements as possible without which the
  /// order is the same on both sides, in ascending order.
  std::vector<std::size_t> findMoved() const;

 private:
  void findCounterparts(const std::vector<Key>& left, const std::vector<Key>& right);

  std::vector<std::size_t> _counterparts;
  std::vector<std::size_t> _onlyRight;
};

}  // namespace lum
