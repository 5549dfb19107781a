#pragma once

#include <vemo/base/Vector.h>

#include <vtkSmartPointer.h>

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

class vtkMatrix4x4;
namespace lum {
class Transform;
}

namespace vemo {

/// From the coordinates of what is placed to those of the model, row by row.
using Placement = std::array<double, 16>;

/// Where something is shown: once for each placement.
using Placements = std::vector<Placement>;

/// As Placements; null for what is shown once, where it is.
using SharedPlacements = std::shared_ptr<const Placements>;

/// More often than this nothing is shown: repeats within repeats multiply.
inline constexpr std::size_t MOST_PLACEMENTS = 10000;

/// The placements of what is moved by a transform (null for none) within what
/// is placed itself. lum::Transform's classes say what each transform means.
SharedPlacements place(const lum::Transform* transform, const SharedPlacements& owner);

/// The 16 values of a placement as a matrix.
vtkSmartPointer<vtkMatrix4x4> toMatrix(const double* placement);

/// Where a point comes to stand by the 16 values of a placement; null moves
/// nothing.
Vector<3, double> placed(const Vector<3, double>& point, const double* placement);

/// Calls visit(const double*) with the 16 values of each placement, or with
/// null for what is shown where it is.
template <class Visit>
void forEachPlacement(const SharedPlacements& placements, Visit&& visit) {
  if (placements == nullptr) {
    visit(static_cast<const double*>(nullptr));
    return;
  }
  for (const Placement& placement : *placements) {
    visit(placement.data());
  }
}

}  // namespace vemo
