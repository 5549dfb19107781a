#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <utility>

namespace vemo {

/// The content of an archive entry: a block of bytes, or the same block as
/// 32-bit numbers. A plain pair that owns nothing: the block was allocated with
/// `new unsigned char[]`, and the receiver must release it as such, or pass it
/// on. ArrayOwner releases it automatically.
template <class T>
struct Array_t {
  T* data = nullptr;
  int count = 0;
};

/// Releases the block of an Array_t when destroyed, unless it was released.
template <class T>
class ArrayOwner {
 public:
  ArrayOwner() = default;
  explicit ArrayOwner(Array_t<T> array) : _array(array) {}
  ArrayOwner(ArrayOwner&& other) noexcept : _array(other.release()) {}
  ArrayOwner& operator=(ArrayOwner&& other) noexcept {
    std::swap(_array, other._array);
    return *this;
  }
  ~ArrayOwner() { static_cast<void>(releaseBlock()); }

  T* data() const { return _array.data; }
  int count() const { return _array.count; }
  std::span<T> values() const { return {_array.data, static_cast<std::size_t>(_array.count)}; }
  const Array_t<T>& get() const { return _array; }

  /// Gives up ownership of the block; the owner is empty then.
  [[nodiscard]] Array_t<T> release() { return std::exchange(_array, {}); }

  /// The same, as the array of bytes that was allocated.
  [[nodiscard]] std::unique_ptr<unsigned char[]> releaseBlock() {
    return std::unique_ptr<unsigned char[]>(reinterpret_cast<unsigned char*>(release().data));
  }

 private:
  Array_t<T> _array;
};

}  // namespace vemo
