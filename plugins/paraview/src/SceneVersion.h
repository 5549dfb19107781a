#pragma once

#include "SceneOutline.h"

#include <cstdint>
#include <string>

namespace vemo {

/// A number that is the same in all processes that see the same version of a scene file, and hardly in
/// others. File systems may state other times and numbers of the same file to each of them: only its
/// content counts.
std::uint64_t versionOf(const std::string& path, const SceneOutline& outline);

}  // namespace vemo
