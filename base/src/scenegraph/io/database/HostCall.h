#pragma once

#include <exception>

namespace lum::io {

/// What a function of the host threw: no fault of the file, even if it is a FileError of another one.
struct HostFailure {
  std::exception_ptr cause;
};

/// Calls a function of the host; throws HostFailure.
template <class Call>
auto callHost(Call&& call) {
  try {
    return call();
  } catch (const std::exception&) {
    throw HostFailure{std::current_exception()};
  }
}

/// Does what calls functions of the host, and throws what they threw.
template <class Work>
auto passOnHostFailure(Work&& work) {
  try {
    return work();
  } catch (const HostFailure& failure) {
    std::rethrow_exception(failure.cause);
  }
}

}  // namespace lum::io
