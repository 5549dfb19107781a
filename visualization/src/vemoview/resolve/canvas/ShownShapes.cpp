#include "vemoview/resolve/canvas/ShownShapes.h"

#include <cmath>
#include <utility>

namespace vemo {

ShownShapes::ShownShapes(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes) : _canvas(canvas) {
  if (std::isfinite(canvas.farthest)) {
    // First, because it often cuts away the most.
    const auto [origin, normal] = canvas.view.planeAt(canvas.farthest);
    _planes.push_back({origin, -1.0 * normal});
  }
  _planes.insert(_planes.end(), clipPlanes.begin(), clipPlanes.end());
  const auto sides = canvas.view.sides(canvas.nearest);
  _planes.insert(_planes.end(), sides.begin(), sides.end());
}

bool ShownShapes::showsPoint(const Vector3& point) {
  clip({point});
  return !_corners.empty();
}

bool ShownShapes::showsLine(const Vector3& from, const Vector3& to) {
  clip({from, to});
  return !_corners.empty() && _canvas.samples.isPassed(project());
}

bool ShownShapes::showsFace(std::initializer_list<Vector3> corners) {
  clip(corners);
  return _corners.size() > 2 && _canvas.samples.isInside(project(), _stepCount);
}

std::span<const PictureSamples::Place> ShownShapes::shownPart(std::initializer_list<Vector3> corners) {
  clip(corners);
  return project();
}

void ShownShapes::clip(std::initializer_list<Vector3> corners) {
  ++_stepCount;
  _corners.assign(corners);
  for (const ClipPlane& plane : _planes) {
    clip(plane);
  }
}

void ShownShapes::clip(const ClipPlane& plane) {
  if (_corners.empty()) {
    return;
  }
  std::swap(_corners, _unclipped);
  _corners.clear();
  Vector3 from = _unclipped.back();
  double before = dot(from - plane.origin, plane.normal);
  for (const Vector3& to : _unclipped) {
    const double after = dot(to - plane.origin, plane.normal);
    if ((before < 0.0) != (after < 0.0)) {
      _corners.push_back(from + before / (before - after) * (to - from));
    }
    if (after >= 0.0) {
      _corners.push_back(to);
    }
    from = to;
    before = after;
  }
}

std::span<const PictureSamples::Place> ShownShapes::project() {
  _places.clear();
  for (const Vector3& corner : _corners) {
    _places.push_back(_canvas.view.placeOf(corner));
  }
  return _places;
}

}  // namespace vemo
