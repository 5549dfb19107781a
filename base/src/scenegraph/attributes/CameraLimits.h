#pragma once

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Export.h>

#include <optional>
#include <string>

namespace lum {

class CameraAttributes;

// What can be drawn with a camera.

/// VTK keeps a camera at least this far from its focal point, and computes the square of the
/// distance.
inline constexpr double LEAST_DISTANCE = 1e-20;

/// OpenGL computes with single precision: greater coordinates cannot be drawn.
inline constexpr double GREATEST_COORDINATE = 1e37;

/// @param view from the camera to its focal point
VEMO_SCENEGRAPH_EXPORT bool isUsableView(const vemo::Vector3& view);

/// Whether it has a direction, which is not that of a usable view.
VEMO_SCENEGRAPH_EXPORT bool isUsableViewUp(const vemo::Vector3& viewUp, const vemo::Vector3& view);

/// Also false for NaN.
VEMO_SCENEGRAPH_EXPORT bool isUsableParallelScale(double scale);

// What drawing makes of a camera that it cannot use, for findings; nothing if it can.

/// The first fault of position, focal point and view-up vector that does not follow from unknown ones.
VEMO_SCENEGRAPH_EXPORT std::optional<std::string> describeDirectionFault(const CameraAttributes& camera);

VEMO_SCENEGRAPH_EXPORT std::optional<std::string> describeScaleFault(double parallelScale);

}  // namespace lum
