#pragma once

#include <string>

namespace vemo::python {

/// What is read and what is written; empty for what is only in memory.
struct WorkFiles {
  std::string source{};
  std::string target{};
};

/// Throws the exception being handled as Python's of that kind (vemoscene/_errors.py). Needs the
/// interpreter lock.
[[noreturn]] void rethrowAsPython(const WorkFiles& files);

/// Calls work(), with its exceptions as Python's.
template <class Work>
auto withPythonErrors(const WorkFiles& files, Work&& work) {
  try {
    return work();
  } catch (...) {
    rethrowAsPython(files);
  }
}

}  // namespace vemo::python
