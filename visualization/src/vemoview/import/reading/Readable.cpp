#include <vemo/import/Readable.h>

namespace vemo {

Readable::~Readable() = default;

}  // namespace vemo
