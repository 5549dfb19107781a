#pragma once

#include <cstdint>
#include <vector>

namespace vemo {

class Picture;

/// The picture as the bytes of a JPEG file, in a quality that leaves thin lines and texts
/// clear. It has no opacities.
std::vector<std::uint8_t> encodeJpeg(const Picture& picture);

}  // namespace vemo
