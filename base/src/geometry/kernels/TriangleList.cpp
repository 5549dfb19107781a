#include "geometry/kernels/TriangleList.h"

#include <algorithm>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace vemo {

namespace {

/// The number of points, and the points.
constexpr std::size_t WORDS = 4;

bool isTriangle(const std::int32_t* cell, std::uint32_t pointCount) {
  return cell[0] == 3 && std::all_of(cell + 1, cell + WORDS, [pointCount](std::int32_t index) {
           return static_cast<std::uint32_t>(index) < pointCount;
         });
}

#ifdef __SSE2__

constexpr std::size_t CELLS_AT_ONCE = 4;

__m128i loadCell(const std::int32_t* cell) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(cell));
}

void store(std::int32_t* target, const __m128i& values) {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(target), values);
}

/// What `isTriangle` checks, with one comparison: each word less its least value,
/// against the number of its values. The sign bits are inverted, because only
/// signed numbers can be compared.
class TriangleCheck {
 public:
  explicit TriangleCheck(std::uint32_t pointCount) {
    const auto points = static_cast<std::int32_t>(pointCount ^ SIGN);
    constexpr auto zero = static_cast<std::int32_t>(SIGN);
    _zeros = _mm_setr_epi32(static_cast<std::int32_t>(SIGN - 3U), zero, zero, zero);
    _ends = _mm_setr_epi32(static_cast<std::int32_t>(SIGN + 1U), points, points, points);
  }

  /// All bits of the words that are as they must be.
  __m128i operator()(const __m128i& cell) const {
    return _mm_cmplt_epi32(_mm_add_epi32(cell, _zeros), _ends);
  }

 private:
  static constexpr std::uint32_t SIGN = 1U << 31U;

  __m128i _zeros;
  __m128i _ends;
};

/// As many blocks of triangles as the list begins with.
std::size_t compactBlocks(std::span<std::int32_t> list, std::uint32_t pointCount,
                          std::span<std::int32_t> ends) {
  const TriangleCheck check(pointCount);
  __m128i blockEnds = _mm_setr_epi32(3, 6, 9, 12);
  std::size_t done = 0;
  for (; (done + CELLS_AT_ONCE) * WORDS <= list.size(); done += CELLS_AT_ONCE) {
    const std::int32_t* const source = &list[done * WORDS];
    const __m128i cells[CELLS_AT_ONCE] = {loadCell(source), loadCell(source + WORDS),
                                          loadCell(source + 2 * WORDS), loadCell(source + 3 * WORDS)};
    const __m128i isRight = _mm_and_si128(_mm_and_si128(check(cells[0]), check(cells[1])),
                                          _mm_and_si128(check(cells[2]), check(cells[3])));
    if (_mm_movemask_epi8(isRight) != 0xFFFF) {
      break;
    }
    // Each store is one word too long. The next overwrites it, or it is a word
    // that was read already.
    std::int32_t* const target = &list[done * 3];
    for (std::size_t i = 0; i < CELLS_AT_ONCE; ++i) {
      store(target + 3 * i, _mm_srli_si128(cells[i], sizeof(std::int32_t)));
    }
    store(&ends[done], blockEnds);
    blockEnds = _mm_add_epi32(blockEnds, _mm_set1_epi32(3 * CELLS_AT_ONCE));
  }
  return done;
}

#else

std::size_t compactBlocks(std::span<std::int32_t> /*list*/, std::uint32_t /*pointCount*/,
                          std::span<std::int32_t> /*ends*/) {
  return 0;
}

#endif

}  // namespace

std::size_t compactTriangles(std::span<std::int32_t> list, std::uint32_t pointCount,
                             std::span<std::int32_t> ends) {
  std::size_t done = compactBlocks(list, pointCount, ends);
  for (; (done + 1) * WORDS <= list.size() && isTriangle(&list[done * WORDS], pointCount); ++done) {
    std::copy_n(&list[done * WORDS + 1], 3, &list[done * 3]);
    ends[done] = static_cast<std::int32_t>(3 * (done + 1));
  }
  return done;
}

}  // namespace vemo
