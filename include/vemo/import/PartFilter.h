#pragma once

#include <cstddef>
#include <functional>

namespace vemo {

/// Whether a part of a scene's geometry is wanted, by its number.
using PartFilter = std::function<bool(std::size_t part)>;

}  // namespace vemo
