#pragma once

#include <vemo/base/Export.h>

#include <set>
#include <string>

namespace vemo {

/// What to add to a message about an unknown name: ": did you mean "wing"?" with up to
/// three similar candidates; empty without any. Letters' case does not matter.
VEMO_BASE_EXPORT std::string suggestNames(const std::string& unknown,
                                          const std::set<std::string>& candidates);

}  // namespace vemo
