#pragma once

#include <vemo/import/Exception.h>

#include <string>

namespace vemo {

/// Throws a T that names the archive entry and, unless it is 0, the line of the
/// scene description.
template <class T>
[[noreturn]] void failAt(const std::string& message, const std::string& entry, int line = 0) {
  T exception(message);
  exception.setEntry(entry);
  exception.setLine(line);
  throw exception;
}

}  // namespace vemo
