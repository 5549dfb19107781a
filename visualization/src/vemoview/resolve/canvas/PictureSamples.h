#pragma once

#include <vemo/base/Vector.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <utility>

namespace vemo {

/// The places at which a canvas is sampled for a picture of the usual size. What lies
/// between them leaves no trace in the picture.
class PictureSamples {
 public:
  /// A point of the canvas, as fractions of its width and height from its lower left corner.
  using Place = Vector<2, double>;

  /// @param size of the canvas, as a part of the window's
  explicit PictureSamples(const Vector<2, double>& size);

  /// Whether a convex polygon has any inside.
  /// @param steps counts the rows that this takes
  bool isInside(std::span<const Place> corners, long& steps) const;

  /// Calls visit(row, begin, end) for the rows of a convex polygon, with its samples in each.
  /// @param steps counts the rows that this takes
  template <class Visit>
  void forEachRow(std::span<const Place> corners, long& steps, const Visit& visit) const {
    if (extent(corners, 0).isEmpty()) {
      return;
    }
    // A sample on an edge that two polygons share is in neither.
    constexpr double ROUNDING = 1e-6;
    const auto [first, last] = rowsOf(corners);
    steps += last - first;
    for (int row = first; row < last; ++row) {
      Interval across = acrossRow(corners, row);
      across.low += ROUNDING;
      across.high -= ROUNDING;
      const double begin = std::clamp(across.begin(), 0.0, _counts[0]);
      const double end = std::clamp(across.end(), 0.0, _counts[0]);
      if (begin < end) {
        visit(static_cast<std::size_t>(row), static_cast<std::size_t>(begin), static_cast<std::size_t>(end));
      }
    }
  }
  std::size_t columnCount() const { return static_cast<std::size_t>(std::ceil(_counts[0])); }
  std::size_t rowCount() const { return static_cast<std::size_t>(std::ceil(_counts[1])); }

  /// Of a polygon, as a part of the canvas.
  static double areaOf(std::span<const Place> corners);

  /// Whether a line passes a column or a row of them.
  bool isPassed(std::span<const Place> line) const;

 private:
  /// An interval between two coordinates, in samples.
  struct Interval {
    double low = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();

    void add(double value) {
      low = std::min(low, value);
      high = std::max(high, value);
    }

    /// The samples inside, which are in the middle between whole numbers, are those from
    /// begin() to before end().
    double begin() const { return std::ceil(low - 0.5); }
    double end() const { return std::ceil(high - 0.5); }
    bool isEmpty() const { return !(begin() < end()); }
  };

  Interval extent(std::span<const Place> places, std::size_t axis) const;
  /// The first row, and the one after the last.
  std::pair<int, int> rowsOf(std::span<const Place> corners) const;
  Interval acrossRow(std::span<const Place> corners, int row) const;

  Vector<2, double> _counts;
};

}  // namespace vemo
