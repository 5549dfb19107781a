#pragma once

#include <vemo/base/Export.h>

#include <cstddef>
#include <set>
#include <string>

namespace vemo {

/// Names from files that are longer are no candidates.
inline constexpr std::size_t LONGEST_SUGGESTION = 300;

/// What to add to a message about an unknown name: ": did you mean "wing"?" with up to
/// three similar candidates; empty without any. Letters' case does not matter.
VEMO_BASE_EXPORT std::string suggestNames(const std::string& unknown,
                                          const std::set<std::string>& candidates);

}  // namespace vemo
