#include "platform/WideStream.h"

#include "platform/WidePath.h"

std::ostream& operator<<(std::ostream& out, const std::wstring& text) {
  return out << toNativePath(text);
}
