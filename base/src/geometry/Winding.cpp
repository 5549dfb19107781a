#include "geometry/Winding.h"

#include "geometry/Cells.h"

#include <vtkPolyData.h>

#include <algorithm>
#include <numeric>

namespace vemo {

namespace {

/// A list of numbers for each point, all in one block.
class PointLists {
 public:
  /// @param sizes of the complete lists
  explicit PointLists(std::span<const std::uint32_t> sizes)
      : _ends(sizes.size()), _numbers(std::accumulate(sizes.begin(), sizes.end(), std::size_t{0})) {
    std::exclusive_scan(sizes.begin(), sizes.end(), _ends.begin(), std::size_t{0});
  }

  void add(std::size_t point, std::uint32_t number) { _numbers[_ends[point]++] = number; }

  /// The list of a point, which is complete, as that of the point before it.
  std::span<std::uint32_t> operator[](std::size_t point) {
    const std::size_t begin = point > 0 ? _ends[point - 1] : 0;
    return {_numbers.data() + begin, _numbers.data() + _ends[point]};
  }

 private:
  std::vector<std::size_t> _ends;
  std::vector<std::uint32_t> _numbers;
};

template <class Index>
Index nextPoint(std::span<const Index> face, std::size_t corner) {
  return face[corner + 1 < face.size() ? corner + 1 : 0];
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
  PointLists nextPoints(sizes);
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

FaceList::FaceList(vtkPolyData& mesh) {
  forEachFace(mesh, [this](auto face) {
    _points.insert(_points.end(), face.begin(), face.end());
    _ends.push_back(_points.size());
  });
}

void FaceList::makeConsistent(std::span<const std::uint32_t> facesAtPoint) {
  PointLists faces(facesAtPoint);
  for (std::size_t face = 0; face < size(); ++face) {
    for (const vtkIdType point : (*this)[face]) {
      faces.add(static_cast<std::size_t>(point), static_cast<std::uint32_t>(face));
    }
  }
  std::vector<bool> isDone(size());
  std::vector<std::size_t> wave;
  const auto take = [&](std::size_t face) {
    isDone[face] = true;
    wave.push_back(face);
  };
  // Faces that are done are removed from the lists, and of the two points of an
  // edge the one with the shorter list is searched: otherwise a fan around one
  // point would take quadratic time.
  std::vector<std::uint32_t> left(facesAtPoint.begin(), facesAtPoint.end());
  const auto windNeighbors = [&](vtkIdType from, vtkIdType to) {
    const bool isFromShorter = left[static_cast<std::size_t>(from)] <= left[static_cast<std::size_t>(to)];
    const auto point = static_cast<std::size_t>(isFromShorter ? from : to);
    const vtkIdType other = isFromShorter ? to : from;
    const auto list = faces[point].first(left[point]);
    for (const std::uint32_t neighbor : list) {
      if (isDone[neighbor] || std::ranges::find((*this)[neighbor], other) == (*this)[neighbor].end()) {
        continue;
      }
      if (!runsThrough(neighbor, to, from)) {
        reverse(neighbor);
      }
      take(neighbor);
    }
    const auto rest =
        std::remove_if(list.begin(), list.end(), [&](std::uint32_t face) { return isDone[face]; });
    left[point] = static_cast<std::uint32_t>(rest - list.begin());
  };
  for (std::size_t first = 0; first < size(); ++first) {
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
bool FaceList::runsThrough(std::size_t face, vtkIdType from, vtkIdType to) const {
  const auto points = (*this)[face];
  const auto corner = std::ranges::find(points, from) - points.begin();
  return nextPoint(points, static_cast<std::size_t>(corner)) == to;
}

void FaceList::reverse(std::size_t face) {
  std::reverse(_points.begin() + static_cast<std::ptrdiff_t>(_ends[face]),
               _points.begin() + static_cast<std::ptrdiff_t>(_ends[face + 1]));
}

}  // namespace vemo
