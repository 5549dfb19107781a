#include "geometry/kernels/TriangleNormals.h"

#include <vemo/base/Vector.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace vemo {

namespace {

/// Of triangles that are worked on together; their vectors stay in the
/// processor's nearest cache. Even.
constexpr std::size_t BLOCK = 128;

/// A vector of each triangle of a block: all x, all y, all z.
template <class T>
using Vectors = std::array<std::array<T, BLOCK>, 3>;

inline Vector3 pointAt(std::span<const float> points, std::int32_t point) {
  const float* const values = points.data() + 3 * static_cast<std::size_t>(point);
  return {values[0], values[1], values[2]};
}

void findDirections(std::span<const float> points, std::span<const std::int32_t> corners,
                    Vectors<double>& directions) {
  for (std::size_t i = 0; 3 * i < corners.size(); ++i) {
    const Vector3 corner = pointAt(points, corners[3 * i + 1]);
    const Vector3 direction =
        cross(pointAt(points, corners[3 * i + 2]) - corner, pointAt(points, corners[3 * i]) - corner);
    for (std::size_t axis = 0; axis < 3; ++axis) {
      directions[axis][i] = direction[axis];
    }
  }
}

#ifdef __SSE2__

/// Vectors of no length, or none that is finite, become zero.
void normalize(const Vectors<double>& directions, std::size_t count, Vectors<float>& normals) {
  const __m128d zero = _mm_setzero_pd();
  const __m128d greatest = _mm_set1_pd(std::numeric_limits<double>::max());
  for (std::size_t i = 0; i < count; i += 2) {
    const __m128d x = _mm_loadu_pd(&directions[0][i]);
    const __m128d y = _mm_loadu_pd(&directions[1][i]);
    const __m128d z = _mm_loadu_pd(&directions[2][i]);
    const __m128d squares = _mm_add_pd(_mm_add_pd(_mm_mul_pd(x, x), _mm_mul_pd(y, y)), _mm_mul_pd(z, z));
    const __m128d norm = _mm_sqrt_pd(squares);
    const __m128d isUsable = _mm_and_pd(_mm_cmpgt_pd(norm, zero), _mm_cmple_pd(norm, greatest));
    const auto store = [&](const __m128d& value, float* target) {
      const __m128 quotients = _mm_cvtpd_ps(_mm_and_pd(isUsable, _mm_div_pd(value, norm)));
      _mm_storel_pi(reinterpret_cast<__m64*>(target), quotients);
    };
    store(x, &normals[0][i]);
    store(y, &normals[1][i]);
    store(z, &normals[2][i]);
  }
}

#else

void normalize(const Vectors<double>& directions, std::size_t count, Vectors<float>& normals) {
  for (std::size_t i = 0; i < count; ++i) {
    const double norm = length(Vector3{directions[0][i], directions[1][i], directions[2][i]});
    const bool isUsable = norm > 0.0 && norm <= std::numeric_limits<double>::max();
    for (std::size_t axis = 0; axis < 3; ++axis) {
      normals[axis][i] = isUsable ? static_cast<float>(directions[axis][i] / norm) : 0.0F;
    }
  }
}

#endif

void add(std::span<const std::int32_t> corners, const Vectors<float>& normals, const NormalSums& sums) {
  for (std::size_t i = 0; 3 * i < corners.size(); ++i) {
    const float x = normals[0][i];
    const float y = normals[1][i];
    const float z = normals[2][i];
    for (const std::int32_t point : corners.subspan(3 * i, 3)) {
      const auto place = static_cast<std::size_t>(point);
      float* const sum = sums.vectors.data() + 3 * place;
      sum[0] += x;
      sum[1] += y;
      sum[2] += z;
      ++sums.counts[place];
    }
  }
}

}  // namespace

void addTriangleNormals(std::span<const float> points, std::span<const std::int32_t> corners,
                        const NormalSums& sums) {
  // Zeros: the last block of an odd number is worked on to an even one.
  Vectors<double> directions{};
  Vectors<float> normals;
  while (!corners.empty()) {
    const auto block = corners.first(std::min(corners.size(), 3 * BLOCK));
    corners = corners.subspan(block.size());
    findDirections(points, block, directions);
    normalize(directions, block.size() / 3, normals);
    add(block, normals, sums);
  }
}

}  // namespace vemo
