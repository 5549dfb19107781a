#pragma once

#include <vemo/base/Vector.h>

#include <algorithm>
#include <cmath>

namespace vemo {

/// Arithmetic of points and directions in space.
using Vector3 = Vector<3, double>;

/// Of three values in a row.
inline Vector3 toVector(const double* values) {
  return {values[0], values[1], values[2]};
}

template <std::size_t N>
bool isFinite(const Vector<N, double>& vector) {
  return std::ranges::all_of(vector, [](double value) { return std::isfinite(value); });
}

constexpr Vector3 operator+(const Vector3& a, const Vector3& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

constexpr Vector3 operator-(const Vector3& a, const Vector3& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

constexpr Vector3 operator*(double factor, const Vector3& a) {
  return {factor * a[0], factor * a[1], factor * a[2]};
}

constexpr double dot(const Vector3& a, const Vector3& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

constexpr Vector3 cross(const Vector3& a, const Vector3& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

}  // namespace vemo
