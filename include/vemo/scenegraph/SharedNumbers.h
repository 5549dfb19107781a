#pragma once

#include <vemo/base/SameBits.h>

#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace lum {

/// A list of numbers that never changes, so that copies share it: the colours of
/// one map, given to any number of nodes, are in memory and in a database once.
class SharedNumbers {
 public:
  SharedNumbers() = default;
  // Implicit: what takes shared numbers takes any.
  SharedNumbers(std::vector<double> numbers)
      : _numbers(numbers.empty() ? nullptr
                                 : std::make_shared<const std::vector<double>>(std::move(numbers))) {}
  SharedNumbers(std::initializer_list<double> numbers) : SharedNumbers(std::vector<double>(numbers)) {}

  const std::vector<double>& get() const {
    static const auto& none = *new std::vector<double>;
    return _numbers != nullptr ? *_numbers : none;
  }
  operator const std::vector<double>&() const { return get(); }

  /// Whether they are the same bit by bit.
  friend bool operator==(const SharedNumbers& left, const SharedNumbers& right) {
    return left._numbers == right._numbers || vemo::sameBits(left.get(), right.get());
  }

 private:
  /// Null for no numbers.
  std::shared_ptr<const std::vector<double>> _numbers;
};

}  // namespace lum
