#include <vemo/import/reading/Readable.h>

namespace vemo {

Readable::~Readable() = default;

}  // namespace vemo
