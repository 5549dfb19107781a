#include "geometry/Box.h"

#include <algorithm>
#include <numeric>

namespace vemo {

Vector3 Box::center() const {
  // Half of a sum would overflow for the largest coordinates.
  return {std::midpoint(low[0], high[0]), std::midpoint(low[1], high[1]), std::midpoint(low[2], high[2])};
}

double Box::longestSide() const {
  return std::ranges::max(high - low);
}

}  // namespace vemo
