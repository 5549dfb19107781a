#include <vemo/resolve/SceneTooLarge.h>

namespace vemo {

// Key function: one typeinfo per class, so exceptions can be caught across
// libraries.
SceneTooLarge::~SceneTooLarge() = default;

}  // namespace vemo
