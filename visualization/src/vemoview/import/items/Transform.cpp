#include <vemo/import/items/Transform.h>

namespace vemo {

Transform::~Transform() = default;

}  // namespace vemo
