#pragma once

#include <vemo/import/SceneParts.h>

#include <cstddef>
#include <vector>

namespace vemo {

/// Which of so many processes reads each of the chosen parts: such that all read about the same
/// number of bytes, where an array that several parts of a process share counts once. The same
/// in every process.
std::vector<int> shareParts(const SceneParts& parts, const std::vector<std::size_t>& chosen, int processes);

}  // namespace vemo
