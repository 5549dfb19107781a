#pragma once

#include <cstdint>
#include <vector>

namespace vemo {

class Picture;

/// The picture as the bytes of a PNG file. VTK's writer takes twice as long, and
/// its library loads ten others.
std::vector<std::uint8_t> encodePng(const Picture& picture);

}  // namespace vemo
