#include <vemo/base/WidePath.h>
#include <vemo/base/WideStream.h>

namespace vemo {

std::ostream& operator<<(std::ostream& out, const std::wstring& text) {
  return out << toNativePath(text);
}

}  // namespace vemo
