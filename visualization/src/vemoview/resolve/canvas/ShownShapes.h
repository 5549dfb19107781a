#pragma once

#include "vemoview/resolve/canvas/PictureSamples.h"
#include "vemoview/resolve/canvas/ViewVolume.h"

#include <limits>
#include <span>
#include <vector>

namespace vemo {

/// A canvas in a picture of the usual size, in which shapes leave a trace or not.
struct UsualCanvas {
  const ViewVolume& view;
  PictureSamples samples;
  /// What is closer to the camera is not drawn.
  double nearest = 0.0;
  /// What is farther away is not searched for.
  double farthest = std::numeric_limits<double>::infinity();
  /// How many times as many pixels the real picture has from top to bottom.
  double heightScale = 1.0;
};

/// Finds out whether shapes in the model would leave a trace in the picture if nothing
/// covered them.
class ShownShapes {
 public:
  /// @param canvas must outlive it
  ShownShapes(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes);

  // OpenGL draws nothing of points and lines whose middle is outside, however wide they are.
  bool showsPoint(const Vector3& point);
  bool showsLine(const Vector3& from, const Vector3& to);
  /// @param corners of a convex polygon
  bool showsFace(std::initializer_list<Vector3> corners);

  /// What the picture shows of a line or a convex polygon: nothing if it is outside. Valid until the
  /// next call.
  std::span<const PictureSamples::Place> shownPart(std::initializer_list<Vector3> corners);

  /// What all of them took: steps of about the same time.
  long stepCount() const { return _stepCount; }

 private:
  void clip(std::initializer_list<Vector3> corners);
  void clip(const ClipPlane& plane);
  std::span<const PictureSamples::Place> project();

  const UsualCanvas& _canvas;
  std::vector<ClipPlane> _planes;
  /// Of the shape at hand, as far as it is in the picture.
  std::vector<Vector3> _corners;
  std::vector<Vector3> _unclipped;
  std::vector<PictureSamples::Place> _places;
  long _stepCount = 0;
};

}  // namespace vemo
