#include <vemo/resolve/SceneTooLarge.h>

namespace vemo {

// Stands here so that the class has one type description, by which exceptions
// that cross library borders are recognised.
SceneTooLarge::~SceneTooLarge() = default;

}  // namespace vemo
