#include "geometry/drawing/EarClipping.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace vemo {

namespace {

using Place = Vector<2, double>;

/// Twice the area of a triangle: above 0 if it is counter-clockwise.
double turn(const Place& a, const Place& b, const Place& c) {
  return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

/// The remaining corners of a polygon while ears are clipped off.
class Outline {
 public:
  explicit Outline(const std::vector<Place>& places)
      : _places(places), _previous(places.size()), _next(places.size()), _size(places.size()) {
    for (std::size_t i = 0; i < _size; ++i) {
      _next[i] = (i + 1) % _size;
      _previous[_next[i]] = i;
    }
  }

  std::size_t size() const { return _size; }
  const std::vector<Place>& places() const { return _places; }
  std::size_t previous(std::size_t corner) const { return _previous[corner]; }
  std::size_t next(std::size_t corner) const { return _next[corner]; }
  bool contains(std::size_t corner) const { return _next[corner] != GONE; }
  Triangle triangleAt(std::size_t corner) const { return {_previous[corner], corner, _next[corner]}; }
  /// Above 0 if the polygon is convex there.
  double turnAt(std::size_t corner) const {
    return turn(_places[_previous[corner]], _places[corner], _places[_next[corner]]);
  }

  void remove(std::size_t corner) {
    _next[_previous[corner]] = _next[corner];
    _previous[_next[corner]] = _previous[corner];
    _next[corner] = GONE;
    --_size;
  }

 private:
  static constexpr std::size_t GONE = std::numeric_limits<std::size_t>::max();

  const std::vector<Place>& _places;
  std::vector<std::size_t> _previous;
  std::vector<std::size_t> _next;
  std::size_t _size;
};

/// Divides the places along an axis into intervals that hold about as many of some values each, wherever
/// these are.
class Intervals {
 public:
  Intervals(std::vector<double> values, std::size_t count) {
    std::ranges::sort(values);
    for (std::size_t i = 1; i < count; ++i) {
      _borders.push_back(values[i * values.size() / count]);
    }
    _borders.erase(std::unique(_borders.begin(), _borders.end()), _borders.end());
  }

  std::size_t size() const { return _borders.size() + 1; }
  /// The first and the last one have no ends.
  double low(std::size_t index) const { return index == 0 ? -NO_END : _borders[index - 1]; }
  double high(std::size_t index) const {
    if (index == _borders.size()) {
      return NO_END;
    }
    return _borders[index];
  }
  std::size_t indexOf(double value) const {
    return static_cast<std::size_t>(std::ranges::upper_bound(_borders, value) - _borders.begin());
  }

 private:
  static constexpr double NO_END = std::numeric_limits<double>::infinity();

  std::vector<double> _borders;
};

/// The corners that may be in an ear: those at which the polygon is not convex. They are in the cells of
/// a grid, about one in each.
class ReflexCorners {
 public:
  explicit ReflexCorners(const Outline& outline) : ReflexCorners(outline, findReflex(outline)) {}

  /// Whether one of them is in a triangle, or on its border, but not at its corners.
  bool touch(const Triangle& triangle) {
    const std::array places{at(triangle[0]), at(triangle[1]), at(triangle[2])};
    const auto [low, high] = std::minmax({places[0][1], places[1][1], places[2][1]});
    for (std::size_t row = _rows.indexOf(low); row <= _rows.indexOf(high); ++row) {
      const auto [left, right] = widthInRow(places, row);
      for (std::size_t column = _columns.indexOf(left); column <= _columns.indexOf(right); ++column) {
        if (touch(cellAt(column, row), triangle, places)) {
          return true;
        }
      }
    }
    return false;
  }

  /// How many cells and corners were looked at.
  std::uint64_t countSteps() const { return _steps; }

 private:
  using Corners = std::vector<std::size_t>;

  ReflexCorners(const Outline& outline, const Corners& corners)
      : _outline(outline),
        _columns(divide(corners, 0)),
        _rows(divide(corners, 1)),
        _cells(_columns.size() * _rows.size()) {
    for (const std::size_t corner : corners) {
      const Place& place = at(corner);
      cellAt(_columns.indexOf(place[0]), _rows.indexOf(place[1])).push_back(corner);
    }
  }

  static Corners findReflex(const Outline& outline) {
    Corners corners;
    for (std::size_t i = 0; i < outline.size(); ++i) {
      if (outline.turnAt(i) <= 0.0) {
        corners.push_back(i);
      }
    }
    return corners;
  }

  Intervals divide(const Corners& corners, std::size_t axis) const {
    std::vector<double> values;
    values.reserve(corners.size());
    for (const std::size_t corner : corners) {
      values.push_back(at(corner)[axis]);
    }
    return {std::move(values), static_cast<std::size_t>(std::sqrt(static_cast<double>(corners.size())))};
  }

  const Place& at(std::size_t corner) const { return _outline.places()[corner]; }
  Corners& cellAt(std::size_t column, std::size_t row) { return _cells[column + row * _columns.size()]; }

  /// Between which x a triangle is in a row of cells, or a little beyond it.
  std::pair<double, double> widthInRow(const std::array<Place, 3>& triangle, std::size_t row) const {
    double left = std::numeric_limits<double>::infinity();
    double right = -left;
    double farthest = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
      const auto [a, b] = std::minmax(triangle[i], triangle[(i + 1) % 3],
                                      [](const Place& one, const Place& other) { return one[1] < other[1]; });
      farthest = std::max({farthest, std::abs(a[0]), std::abs(b[0])});
      if (b[1] < _rows.low(row) || a[1] > _rows.high(row)) {
        continue;
      }
      const double rise = b[1] - a[1];
      const double begin = rise > 0.0 ? (std::max(_rows.low(row), a[1]) - a[1]) / rise : 0.0;
      const double end = rise > 0.0 ? (std::min(_rows.high(row), b[1]) - a[1]) / rise : 1.0;
      for (const double part : {begin, end}) {
        const double x = a[0] + part * (b[0] - a[0]);
        left = std::min(left, x);
        right = std::max(right, x);
      }
    }
    // Against rounding, which may leave out a corner on the border.
    const double room = 1e-14 * farthest;
    return {left - room, right + room};
  }

  bool touch(Corners& cell, const Triangle& triangle, const std::array<Place, 3>& places) {
    ++_steps;
    for (std::size_t i = 0; i < cell.size();) {
      const std::size_t corner = cell[i];
      if (!_outline.contains(corner) || _outline.turnAt(corner) > 0.0) {
        // It is no more in the way of any ear.
        cell[i] = cell.back();
        cell.pop_back();
        continue;
      }
      ++_steps;
      const Place& place = at(corner);
      if (std::ranges::find(triangle, corner) == triangle.end() &&
          std::ranges::find(places, place) == places.end() && turn(places[0], places[1], place) >= 0.0 &&
          turn(places[1], places[2], place) >= 0.0 && turn(places[2], places[0], place) >= 0.0) {
        return true;
      }
      ++i;
    }
    return false;
  }

  const Outline& _outline;
  Intervals _columns;
  Intervals _rows;
  std::vector<Corners> _cells;
  std::uint64_t _steps = 0;
};

class EarClipper {
 public:
  explicit EarClipper(const std::vector<Place>& places)
      : _outline(places), _reflex(_outline), _isWaiting(places.size(), false), _round(places.size(), 0) {
    for (std::size_t i = 0; i < places.size(); ++i) {
      wait(i);
    }
  }

  /// Whether all was clipped.
  bool run() {
    while (_outline.size() > 3) {
      if (_waiting.empty() && !resume()) {
        return false;
      }
      if (!clipRound()) {
        return false;
      }
    }
    return clipLast() && !_triangles.empty();
  }

  std::vector<Triangle> takeTriangles() { return std::move(_triangles); }

 private:
  void wait(std::size_t corner) {
    if (!_isWaiting[corner]) {
      _isWaiting[corner] = true;
      _waiting.push_back(corner);
    }
  }

  /// Corners beside an ear wait for the next round, so that triangles are no longer than they must be.
  bool clipRound() {
    ++_currentRound;
    _steps += _waiting.size();
    for (const std::size_t corner : std::exchange(_waiting, {})) {
      if (_outline.size() <= 3 || isExhausted()) {
        break;
      }
      _isWaiting[corner] = false;
      if (!_outline.contains(corner)) {
        continue;
      }
      if (_round[corner] == _currentRound) {
        wait(corner);
      } else if (_outline.turnAt(corner) > 0.0 && !_reflex.touch(_outline.triangleAt(corner))) {
        _triangles.push_back(_outline.triangleAt(corner));
        clip(corner);
      } else {
        _blocked.push_back(corner);
      }
    }
    return !isExhausted();
  }

  bool isExhausted() const {
    // So many for each corner: those of most polygons take a hundredth of that.
    constexpr std::uint64_t MOST_STEPS = 2000;
    return _steps + _reflex.countSteps() > MOST_STEPS * _round.size();
  }

  void clip(std::size_t corner) {
    for (const std::size_t neighbour : {_outline.previous(corner), _outline.next(corner)}) {
      _round[neighbour] = _currentRound;
      wait(neighbour);
    }
    _outline.remove(corner);
    _hasClipped = true;
  }

  /// Looks at what was no ear again if that may have changed. If not, corners on a straight border, or at
  /// the end of a line without an area, are left out.
  bool resume() {
    std::vector<std::size_t> blocked;
    blocked.swap(_blocked);
    const bool isStuck = !std::exchange(_hasClipped, false);
    for (const std::size_t corner : blocked) {
      if (!_outline.contains(corner)) {
        continue;
      }
      if (isStuck && _outline.size() > 3 && _outline.turnAt(corner) == 0.0) {
        clip(corner);
      } else {
        wait(corner);
      }
    }
    return !isStuck || _hasClipped;
  }

  /// Of three corners.
  bool clipLast() {
    std::size_t corner = 0;
    while (!_outline.contains(corner)) {
      ++corner;
    }
    const double area = _outline.turnAt(corner);
    if (area > 0.0) {
      _triangles.push_back(_outline.triangleAt(corner));
    }
    return area >= 0.0;
  }

  Outline _outline;
  ReflexCorners _reflex;
  std::vector<std::size_t> _waiting;
  /// Those that were not clipped when they were looked at.
  std::vector<std::size_t> _blocked;
  std::vector<bool> _isWaiting;
  /// In which a corner's neighbour was clipped last.
  std::vector<std::size_t> _round;
  std::size_t _currentRound = 0;
  std::uint64_t _steps = 0;
  bool _hasClipped = false;
  std::vector<Triangle> _triangles;
};

}  // namespace

std::optional<std::vector<Triangle>> clipEars(const std::vector<Vector<2, double>>& polygon) {
  if (polygon.size() < 3) {
    return std::nullopt;
  }
  EarClipper clipper(polygon);
  // Together, triangles surround each place as often as the polygon does. So if all are
  // counter-clockwise, none of them is outside of it.
  return clipper.run() ? std::optional(clipper.takeTriangles()) : std::nullopt;
}

}  // namespace vemo
