#include "geometry/Box.h"

#include <algorithm>
#include <numeric>

namespace vemo {

Vector3 Box::center() const {
  // Half of a sum would overflow for the largest coordinates.
  return {std::midpoint(low[0], high[0]), std::midpoint(low[1], high[1]), std::midpoint(low[2], high[2])};
}

std::array<Vector3, 8> Box::corners() const {
  std::array<Vector3, 8> result;
  for (unsigned i = 0; i < result.size(); ++i) {
    result[i] = {((i & 1U) != 0 ? high : low)[0], ((i & 2U) != 0 ? high : low)[1],
                 ((i & 4U) != 0 ? high : low)[2]};
  }
  return result;
}

double Box::longestSide() const {
  return std::ranges::max(high - low);
}

}  // namespace vemo
