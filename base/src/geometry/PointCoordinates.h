#pragma once

#include <vemo/base/InternalError.h>

#include <vtkAOSDataArrayTemplate.h>
#include <vtkPoints.h>

#include <cstddef>
#include <span>

namespace vemo::geometry {

/// Calls the action with the coordinates of the points (x, y, z, x, ...) as a
/// span of const float or of const double, whichever they are stored as.
/// @throws InternalError when they are of another type
template <class Action>
void withCoordinates(vtkPoints& points, Action&& action) {
  const auto size = 3 * static_cast<std::size_t>(points.GetNumberOfPoints());
  if (auto* const floats = vtkAOSDataArrayTemplate<float>::FastDownCast(points.GetData())) {
    action(std::span<const float>(floats->GetPointer(0), size));
    return;
  }
  auto* const doubles = vtkAOSDataArrayTemplate<double>::FastDownCast(points.GetData());
  VEMO_REQUIRE(doubles, "points must be of type float or double");
  action(std::span<const double>(doubles->GetPointer(0), size));
}

}  // namespace vemo::geometry
