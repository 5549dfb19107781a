#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <ostream>
#include <type_traits>

namespace vemo {

/// A fixed number of values of one type: a point, a direction, a range, labels.
/// An aggregate: Vector<3, double>{1.0, 2.0, 3.0}; missing values are T().
template <std::size_t N, class T>
struct Vector {
  std::array<T, N> values{};

  static constexpr std::size_t size() { return N; }
  constexpr T& operator[](std::size_t index) { return values[index]; }
  constexpr const T& operator[](std::size_t index) const { return values[index]; }
  constexpr T* data() { return values.data(); }
  constexpr const T* data() const { return values.data(); }
  constexpr auto begin() { return values.begin(); }
  constexpr auto end() { return values.end(); }
  constexpr auto begin() const { return values.begin(); }
  constexpr auto end() const { return values.end(); }

  friend constexpr bool operator==(const Vector&, const Vector&) = default;

  friend std::ostream& operator<<(std::ostream& out, const Vector& vector) {
    out << '(';
    for (std::size_t i = 0; i < N; ++i) {
      out << (i == 0 ? "" : ", ") << vector[i];
    }
    return out << ')';
  }
};

/// The Euclidean length.
template <std::size_t N, class T>
requires std::is_floating_point_v<T> T length(const Vector<N, T>& vector) {
  T sum{};
  for (const T value : vector) {
    sum += value * value;
  }
  return std::sqrt(sum);
}

/// The vector divided by its length; zero when its length is exactly 0.
template <std::size_t N, class T>
requires std::is_floating_point_v<T> Vector<N, T> normalized(const Vector<N, T>& vector) {
  const T norm = length(vector);
  Vector<N, T> result;
  if (norm != T(0)) {
    for (std::size_t i = 0; i < N; ++i) {
      result[i] = vector[i] / norm;
    }
  }
  return result;
}

}  // namespace vemo
