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

/// Three corners, counter-clockwise, and their places.
class Ear {
 public:
  Ear(const std::vector<Place>& places, const Triangle& corners)
      : _corners(corners), _places{places[corners[0]], places[corners[1]], places[corners[2]]} {}

  /// Whether a corner is in it, or on its border, but not at one of its corners.
  bool contains(std::size_t corner, const Place& place) const {
    return std::ranges::find(_corners, corner) == _corners.end() && !hasCornerAt(place) &&
           reaches(place, place);
  }

  bool hasCornerAt(const Place& place) const { return std::ranges::find(_places, place) != _places.end(); }

  /// Whether none of its sides has all of a box behind it. True if it contains a place in the box: the
  /// results of `turn` grow along each axis, rounded as they are.
  bool reaches(const Place& low, const Place& high) const {
    for (std::size_t i = 0; i < 3; ++i) {
      const Place& a = _places[i];
      const Place& b = _places[(i + 1) % 3];
      if (turn(a, b, {(b[1] > a[1] ? low : high)[0], (b[0] > a[0] ? high : low)[1]}) < 0.0) {
        return false;
      }
    }
    return true;
  }

 private:
  Triangle _corners;
  std::array<Place, 3> _places;
};

/// The corners that may be in an ear: those at which the polygon is not convex. They are in a tree of
/// boxes, each of which holds half of the corners of the box above it.
class ReflexCorners {
 public:
  explicit ReflexCorners(const Outline& outline) : _outline(outline) {
    for (std::size_t i = 0; i < outline.size(); ++i) {
      if (outline.turnAt(i) <= 0.0) {
        _corners.push_back(i);
      }
    }
    divide(0, _corners.size());
  }

  bool touch(const Triangle& triangle) { return touch(0, Ear(_outline.places(), triangle)); }

  /// How many boxes and corners were looked at.
  std::uint64_t countSteps() const { return _steps; }

 private:
  struct Box {
    Place low;
    Place high;
    std::size_t begin;
    std::size_t end;
    /// The first half is behind the box itself; 0 for a box that is not divided.
    std::size_t secondHalf = 0;
    bool isEmpty() const { return begin == end; }
  };

  const Place& at(std::size_t corner) const { return _outline.places()[corner]; }

  Box around(std::size_t begin, std::size_t end) const {
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    Box box{{INFINITE, INFINITE}, {-INFINITE, -INFINITE}, begin, end};
    for (std::size_t i = begin; i < end; ++i) {
      const Place& place = at(_corners[i]);
      for (std::size_t axis = 0; axis < 2; ++axis) {
        box.low[axis] = std::min(box.low[axis], place[axis]);
        box.high[axis] = std::max(box.high[axis], place[axis]);
      }
    }
    return box;
  }

  /// Returns the number of the box.
  std::size_t divide(std::size_t begin, std::size_t end) {
    constexpr std::size_t MOST_CORNERS = 4;
    const std::size_t number = _boxes.size();
    const Box box = around(begin, end);
    _boxes.push_back(box);
    if (end - begin > MOST_CORNERS) {
      const std::size_t axis = box.high[0] - box.low[0] > box.high[1] - box.low[1] ? 0 : 1;
      const std::size_t middle = begin + (end - begin) / 2;
      const auto first = _corners.begin();
      const auto iteratorAt = [first](std::size_t index) {
        return first + static_cast<std::ptrdiff_t>(index);
      };
      std::ranges::nth_element(iteratorAt(begin), iteratorAt(middle), iteratorAt(end), {},
                               [&](std::size_t corner) { return at(corner)[axis]; });
      divide(begin, middle);
      const std::size_t secondHalf = divide(middle, end);
      _boxes[number].secondHalf = secondHalf;
    }
    return number;
  }

  bool touch(std::size_t number, const Ear& ear) {
    ++_steps;
    Box& box = _boxes[number];
    const bool isAtCorner = box.low == box.high && ear.hasCornerAt(box.low);
    if (box.isEmpty() || isAtCorner || !ear.reaches(box.low, box.high)) {
      return false;
    }
    if (box.secondHalf == 0) {
      return touchAny(box, ear);
    }
    if (touch(number + 1, ear) || touch(box.secondHalf, ear)) {
      return true;
    }
    if (_boxes[number + 1].isEmpty() && _boxes[box.secondHalf].isEmpty()) {
      box.end = box.begin;
    }
    return false;
  }

  bool touchAny(Box& box, const Ear& ear) {
    for (std::size_t i = box.begin; i < box.end;) {
      ++_steps;
      const std::size_t corner = _corners[i];
      if (!_outline.contains(corner) || _outline.turnAt(corner) > 0.0) {
        // It is no more in the way of any ear.
        std::swap(_corners[i], _corners[--box.end]);
      } else if (ear.contains(corner, at(corner))) {
        return true;
      } else {
        ++i;
      }
    }
    return false;
  }

  const Outline& _outline;
  std::vector<std::size_t> _corners;
  std::vector<Box> _boxes;
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
    // So many for each corner: those of most polygons take a tenth of that.
    constexpr std::uint64_t MOST_STEPS = 4000;
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
