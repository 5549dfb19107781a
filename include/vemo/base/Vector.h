#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <compare>
#include <cstddef>
#include <optional>
#include <ostream>
#include <type_traits>
#include <utility>

namespace vemo {

/// A fixed number of values of one type: a point, a direction, a range, labels.
/// An aggregate: Vector<3, double>{1.0, 2.0, 3.0}; missing values are T().
template <std::size_t N, class T>
struct Vector {
  std::array<T, N> values{};

  /// The results of a function of each two elements with the same index.
  template <class Function>
  static constexpr Vector combine(const Vector& a, const Vector& b, const Function& function) {
    return combineAt(a, b, function, std::make_index_sequence<N>());
  }

  /// The sum of the squares of the elements.
  constexpr T squaredLength() const { return sumOfSquares(std::make_index_sequence<N>()); }

  static constexpr std::size_t size() { return N; }
  constexpr T& operator[](std::size_t index) { return values[index]; }
  constexpr const T& operator[](std::size_t index) const { return values[index]; }
  constexpr T* data() { return values.data(); }
  constexpr const T* data() const { return values.data(); }
  constexpr auto begin() { return values.begin(); }
  constexpr auto end() { return values.end(); }
  constexpr auto begin() const { return values.begin(); }
  constexpr auto end() const { return values.end(); }

  friend constexpr Vector operator+(const Vector& a, const Vector& b) {
    return combine(a, b, [](const T& x, const T& y) { return x + y; });
  }

  friend constexpr Vector operator-(const Vector& a, const Vector& b) {
    return combine(a, b, [](const T& x, const T& y) { return x - y; });
  }

  friend constexpr Vector operator*(const T& factor, const Vector& vector) {
    return combine(vector, vector, [&factor](const T& x, const T&) { return factor * x; });
  }

  constexpr Vector& operator+=(const Vector& other) { return *this = *this + other; }

  friend constexpr bool operator==(const Vector&, const Vector&) = default;
  friend constexpr auto operator<=>(const Vector&, const Vector&) requires std::is_arithmetic_v<T>
  = default;

  friend std::ostream& operator<<(std::ostream& out, const Vector& vector) {
    out << '(';
    for (std::size_t i = 0; i < N; ++i) {
      out << (i == 0 ? "" : ", ") << vector[i];
    }
    return out << ')';
  }

 private:
  // Packs are always unrolled, unlike loops of a fixed length.

  template <class Function, std::size_t... I>
  static constexpr Vector combineAt(const Vector& a, const Vector& b, const Function& function,
                                    std::index_sequence<I...> /*indices*/) {
    return Vector{function(a[I], b[I])...};
  }

  template <std::size_t... I>
  constexpr T sumOfSquares(std::index_sequence<I...> /*indices*/) const {
    return (... + (values[I] * values[I]));
  }
};

/// A point or a direction in space.
using Vector3 = Vector<3, double>;

/// Of three values in a row.
constexpr Vector3 toVector(const double* values) {
  return {values[0], values[1], values[2]};
}

template <std::size_t N, class T>
requires std::is_floating_point_v<T>
bool isFinite(const Vector<N, T>& vector) {
  return std::ranges::all_of(vector, [](T value) { return std::isfinite(value); });
}

constexpr double dot(const Vector3& a, const Vector3& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

constexpr Vector3 cross(const Vector3& a, const Vector3& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// The Euclidean length.
template <std::size_t N, class T>
requires std::is_floating_point_v<T> T length(const Vector<N, T>& vector) {
  return std::sqrt(vector.squaredLength());
}

/// The vector divided by its length, however small or large that is; zero for zero.
template <std::size_t N, class T>
requires std::is_floating_point_v<T> Vector<N, T> normalized(const Vector<N, T>& vector) {
  const auto dividedBy = [&vector](T divisor) {
    return Vector<N, T>::combine(vector, vector, [divisor](T x, T) { return x / divisor; });
  };
  const T square = vector.squaredLength();
  if (std::isnormal(square) || !isFinite(vector)) {
    return dividedBy(std::sqrt(square));
  }
  const T largest = std::abs(std::ranges::max(vector, {}, [](T x) { return std::abs(x); }));
  return largest == T(0) ? Vector<N, T>() : normalized(dividedBy(largest));
}

/// Of the same direction, with length 1; nothing for zero, and unless all of it is finite.
inline std::optional<Vector3> unitVector(const Vector3& vector) {
  return isFinite(vector) && vector != Vector3{} ? std::optional(normalized(vector)) : std::nullopt;
}

}  // namespace vemo
