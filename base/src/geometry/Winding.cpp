#include "geometry/Winding.h"

#include "geometry/Cells.h"

#include <vtkPolyData.h>

#include <algorithm>
#include <compare>
#include <iterator>
#include <numeric>
#include <optional>

namespace vemo {

namespace {

/// A list of values for each point, all in one block.
template <class T>
class PointLists {
 public:
  /// @param sizes of the complete lists
  explicit PointLists(std::span<const std::uint32_t> sizes)
      : _ends(sizes.size()), _values(std::accumulate(sizes.begin(), sizes.end(), std::size_t{0})) {
    std::exclusive_scan(sizes.begin(), sizes.end(), _ends.begin(), std::size_t{0});
  }

  void add(std::size_t point, const T& value) { _values[_ends[point]++] = value; }

  /// The list of a point, which is complete, as that of the point before it.
  std::span<T> operator[](std::size_t point) {
    const std::size_t begin = point > 0 ? _ends[point - 1] : 0;
    return {_values.data() + begin, _values.data() + _ends[point]};
  }

 private:
  std::vector<std::size_t> _ends;
  std::vector<T> _values;
};

template <class Index>
Index nextPoint(std::span<const Index> face, std::size_t corner) {
  return face[corner + 1 < face.size() ? corner + 1 : 0];
}

/// Finds the faces that have both points of an edge, whether it is one of theirs or not, as VTK does.
/// Each edge is searched once: hostile meshes have the same one very often, or very many faces at each
/// of its points.
class EdgeNeighbors {
 public:
  EdgeNeighbors(const FaceList& faces, std::size_t pointCount);

  /// Ascending numbers of faces, a face perhaps twice; nothing for an edge that was searched before.
  /// Without some of the faces that are done.
  std::span<const std::uint32_t> search(std::uint32_t from, std::uint32_t to,
                                        const std::vector<bool>& isDone);

 private:
  /// A face that has a point of the same or a higher number than that which lists it.
  struct Pair {
    std::uint32_t higher;
    std::uint32_t face;
    auto operator<=>(const Pair&) const = default;
  };

  /// The corners of larger faces make too many pairs: only those of their edges are listed.
  static constexpr std::size_t SMALL = 6;
  static constexpr std::size_t STEPS_PER_CORNER = 64;
  /// Of a search in a list.
  static constexpr std::size_t STEPS_OF_SEARCH = 20;
  /// In the first one of an edge's pairs: it was searched.
  static constexpr std::uint32_t SEARCHED = 0xffffffff;

  template <class Visit>
  void forEachPair(const FaceList& faces, const Visit& visit) const;
  void findLarge(std::size_t from, std::size_t to, const std::vector<bool>& isDone);

  /// Points that an edge joins with themselves: all faces at them are its neighbors.
  std::vector<bool> _isDoubled;
  std::optional<PointLists<Pair>> _pairs;
  std::optional<PointLists<std::uint32_t>> _large;
  /// The lengths of the lists of large faces, without those that were done.
  std::vector<std::uint32_t> _largeCounts;
  /// Looks at large faces. Where very many of them meet at each point, without an edge in common, only
  /// those with the edge itself are found in the end.
  std::size_t _steps = 0;
  std::size_t _mostSteps = 1'000'000;
  std::vector<std::uint32_t> _found;
};

EdgeNeighbors::EdgeNeighbors(const FaceList& faces, std::size_t pointCount)
    : _isDoubled(pointCount), _largeCounts(pointCount) {
  for (std::size_t face = 0; face < faces.size(); ++face) {
    const auto points = faces[face];
    _mostSteps += STEPS_PER_CORNER * points.size();
    for (std::size_t corner = 0; corner < points.size(); ++corner) {
      const std::uint32_t point = points[corner];
      _isDoubled[point] = _isDoubled[point] || nextPoint(points, corner) == point;
      _largeCounts[point] += points.size() > SMALL ? 1 : 0;
    }
  }
  std::vector<std::uint32_t> sizes(pointCount);
  forEachPair(faces, [&sizes](std::size_t lower, const Pair& /*pair*/) { ++sizes[lower]; });
  _pairs.emplace(sizes);
  forEachPair(faces, [this](std::size_t lower, const Pair& pair) { _pairs->add(lower, pair); });
  _large.emplace(_largeCounts);
  for (std::size_t point = 0; point < pointCount; ++point) {
    std::ranges::sort((*_pairs)[point]);
  }
  for (std::size_t face = 0; face < faces.size(); ++face) {
    for (const std::uint32_t point :
         faces[face].size() > SMALL ? faces[face] : std::span<const std::uint32_t>()) {
      _large->add(point, static_cast<std::uint32_t>(face));
    }
  }
}

/// Calls visit(lower point, pair).
template <class Visit>
void EdgeNeighbors::forEachPair(const FaceList& faces, const Visit& visit) const {
  for (std::size_t face = 0; face < faces.size(); ++face) {
    const auto points = faces[face];
    const auto add = [&](std::uint32_t a, std::uint32_t b) {
      const auto [lower, higher] = std::minmax(a, b);
      visit(lower, Pair{higher, static_cast<std::uint32_t>(face)});
    };
    for (std::size_t corner = 0; corner < points.size(); ++corner) {
      if (points.size() > SMALL) {
        add(points[corner], nextPoint(points, corner));
        continue;
      }
      for (const std::uint32_t other : points.subspan(corner + 1)) {
        add(points[corner], other);
      }
      if (_isDoubled[points[corner]]) {
        add(points[corner], points[corner]);
      }
    }
  }
}

std::span<const std::uint32_t> EdgeNeighbors::search(std::uint32_t from, std::uint32_t to,
                                                     const std::vector<bool>& isDone) {
  const auto [lower, higher] = std::minmax({from, to});
  const std::span list = (*_pairs)[lower];
  const std::span run(std::ranges::lower_bound(list, higher, {}, &Pair::higher),
                      std::ranges::upper_bound(list, higher, {}, &Pair::higher));
  _found.clear();
  if (run.front().face == SEARCHED) {
    return {};
  }
  std::ranges::transform(run, std::back_inserter(_found), &Pair::face);
  run.front().face = SEARCHED;
  const auto count = static_cast<std::ptrdiff_t>(_found.size());
  findLarge(lower, higher, isDone);
  std::inplace_merge(_found.begin(), _found.begin() + count, _found.end());
  return _found;
}

void EdgeNeighbors::findLarge(std::size_t from, std::size_t to, const std::vector<bool>& isDone) {
  const auto [shorter, longer] = std::minmax(
      from, to, [this](std::size_t a, std::size_t b) { return _largeCounts[a] < _largeCounts[b]; });
  const auto list = (*_large)[shorter].first(_largeCounts[shorter]);
  if (_steps > _mostSteps) {
    return;
  }
  _steps += list.size();
  const auto rest =
      std::remove_if(list.begin(), list.end(), [&](std::uint32_t face) { return isDone[face]; });
  _largeCounts[shorter] = static_cast<std::uint32_t>(rest - list.begin());
  const auto others = (*_large)[longer].first(_largeCounts[longer]);
  const std::span remaining(list.begin(), rest);
  if (others.size() < STEPS_OF_SEARCH * remaining.size()) {
    _steps += others.size();
    std::ranges::set_intersection(remaining, others, std::back_inserter(_found));
  } else {
    _steps += STEPS_OF_SEARCH * remaining.size();
    std::ranges::copy_if(remaining, std::back_inserter(_found),
                         [&others](std::uint32_t face) { return std::ranges::binary_search(others, face); });
  }
}

}  // namespace

bool isConsistentlyWound(vtkPolyData& mesh, const PointMarks& marks,
                         std::span<const std::uint32_t> facesAtPoint) {
  if (marks.empty()) {
    return true;
  }
  std::vector<std::uint32_t> sizes(facesAtPoint.begin(), facesAtPoint.end());
  for (std::size_t point = 0; point < sizes.size(); ++point) {
    sizes[point] = marks[point] ? sizes[point] : 0;
  }
  PointLists<std::uint32_t> nextPoints(sizes);
  forEachFace(mesh, [&]<class Index>(std::span<const Index> face) {
    for (std::size_t corner = 0; corner < face.size(); ++corner) {
      const auto point = static_cast<std::size_t>(face[corner]);
      if (marks[point]) {
        nextPoints.add(point, static_cast<std::uint32_t>(nextPoint(face, corner)));
      }
    }
  });
  for (std::size_t point = 0; point < sizes.size(); ++point) {
    const auto list = nextPoints[point];
    std::ranges::sort(list);
    if (std::ranges::adjacent_find(list) != list.end()) {
      return false;
    }
  }
  return true;
}

FaceList::FaceList(vtkPolyData& mesh) : _pointCount(static_cast<std::size_t>(mesh.GetNumberOfPoints())) {
  const vtkIdType triangles = countTriangles(*mesh.GetStrips());
  _points.reserve(static_cast<std::size_t>(mesh.GetPolys()->GetNumberOfConnectivityIds() + 3 * triangles));
  _ends.reserve(static_cast<std::size_t>(1 + mesh.GetNumberOfPolys() + triangles));
  forEachFace(mesh, [this](auto face) {
    std::ranges::transform(face, std::back_inserter(_points),
                           [](auto point) { return static_cast<std::uint32_t>(point); });
    _ends.push_back(static_cast<std::uint32_t>(_points.size()));
  });
}

void FaceList::makeConsistent() {
  EdgeNeighbors neighbors(*this, _pointCount);
  std::vector<bool> isDone(size());
  std::vector<std::uint32_t> wave;
  wave.reserve(size());
  const auto take = [&](std::uint32_t face) {
    isDone[face] = true;
    wave.push_back(face);
  };
  const auto windNeighbors = [&](std::uint32_t from, std::uint32_t to) {
    for (const std::uint32_t neighbor : neighbors.search(from, to, isDone)) {
      if (isDone[neighbor]) {
        continue;
      }
      if (!runsThrough(neighbor, to, from)) {
        reverse(neighbor);
      }
      take(neighbor);
    }
  };
  for (std::uint32_t first = 0; first < size(); ++first) {
    if (isDone[first]) {
      continue;
    }
    wave.clear();
    take(first);
    // The wave grows meanwhile.
    for (std::size_t next = 0; next < wave.size();) {
      const auto face = (*this)[wave[next++]];
      for (std::size_t corner = 0; corner < face.size(); ++corner) {
        windNeighbors(face[corner], nextPoint(face, corner));
      }
    }
  }
}

/// Whether its first corner at `from` is followed by `to`.
bool FaceList::runsThrough(std::size_t face, std::uint32_t from, std::uint32_t to) const {
  const auto points = (*this)[face];
  const auto corner = std::ranges::find(points, from) - points.begin();
  return nextPoint(points, static_cast<std::size_t>(corner)) == to;
}

void FaceList::reverse(std::size_t face) {
  std::reverse(_points.begin() + _ends[face], _points.begin() + _ends[face + 1]);
}

}  // namespace vemo
