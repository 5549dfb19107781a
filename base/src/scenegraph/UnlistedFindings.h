#pragma once

#include <vemo/scenegraph/inspect/NumberText.h>

#include <cstddef>
#include <string>

namespace vemo {

/// How many findings of one code are listed of a file that is checked.
inline constexpr std::size_t MOST_FINDINGS_OF_A_CODE = 10'000;

/// The text of the finding in place of further ones.
inline std::string describeUnlisted(std::size_t count) {
  return lum::withNoun(std::to_string(count), "further finding") + " of this kind " +
         (count == 1 ? "is" : "are") + " not listed";
}

}  // namespace vemo
