#include "vemoview/render/resolve/Placements.h"

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/transforms/PeriodicRepeatTransform.h>
#include <vemo/scenegraph/transforms/SimpleTransform.h>
#include <vemo/scenegraph/transforms/SymmetricTransform.h>

#include <vtkMath.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkTransform.h>

#include <algorithm>
#include <cmath>

namespace vemo {

namespace {

constexpr Placement IDENTITY = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

Placement product(const Placement& outer, const Placement& inner) {
  Placement result;
  vtkMatrix4x4::Multiply4x4(outer.data(), inner.data(), result.data());
  return result;
}

/// Whether something so placed has an extent that can be reckoned with.
bool isUsable(const Placement& placement) {
  constexpr double LARGEST = 1e30;
  constexpr double LEAST_VOLUME = 1e-200;
  // Also false for what is not a number.
  return std::ranges::all_of(placement, [](double value) { return std::abs(value) < LARGEST; }) &&
         std::abs(vtkMatrix4x4::Determinant(placement.data())) > LEAST_VOLUME;
}

Placement matrixOf(const lum::SimpleTransform& transform) {
  const auto& origin = transform.getRotationOrigin();
  const auto& axis = transform.getRotationAxis();
  const auto& move = transform.getTranslation();
  const auto& scale = transform.getScale();
  vtkNew<vtkTransform> steps;
  steps->PostMultiply();
  if (scale != Vector<3, double>{}) {
    steps->Scale(scale.data());
  }
  steps->Translate(-origin[0], -origin[1], -origin[2]);
  steps->RotateWXYZ(vtkMath::DegreesFromRadians(transform.getRotationAngle()), axis.data());
  steps->Translate(origin[0] + move[0], origin[1] + move[1], origin[2] + move[2]);
  Placement result;
  std::copy_n(steps->GetMatrix()->GetData(), result.size(), result.begin());
  return result;
}

bool isFinite(const lum::SimpleTransform& transform) {
  return isFinite(transform.getRotationOrigin()) && isFinite(transform.getRotationAxis()) &&
         isFinite(transform.getTranslation()) && isFinite(transform.getScale()) &&
         std::isfinite(transform.getRotationAngle());
}

/// x' = x - 2 (n x + d) / (n n) n, for a plane n x + d = 0.
Placement reflection(const Vector<4, double>& plane) {
  const double square = plane[0] * plane[0] + plane[1] * plane[1] + plane[2] * plane[2];
  Placement result = IDENTITY;
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      result[4 * row + column] -= 2.0 * plane[row] * plane[column] / square;
    }
  }
  return result;
}

/// Each moved against the one before, until nothing can be seen of one.
Placements repetitions(const Placement& step, std::int32_t count) {
  Placements result{IDENTITY};
  if (step == IDENTITY) {
    return result;
  }
  if (count > static_cast<std::int64_t>(MOST_PLACEMENTS)) {
    VEMO_LOG_WARNING("Of " << count << " repeats only the first " << MOST_PLACEMENTS << " are shown");
  }
  const auto wanted = std::min(static_cast<std::size_t>(std::max(count, 1)), MOST_PLACEMENTS);
  while (result.size() < wanted) {
    const Placement next = product(step, result.back());
    if (!isUsable(next)) {
      break;
    }
    result.push_back(next);
  }
  return result;
}

/// The placements of a transform alone.
Placements placementsOf(const lum::Transform& transform) {
  if (const auto* const mirror = dynamic_cast<const lum::SymmetricTransform*>(&transform)) {
    const Placement image = reflection(mirror->getPlane());
    return isUsable(image) ? Placements{IDENTITY, image} : Placements{IDENTITY};
  }
  const auto* const simple = dynamic_cast<const lum::SimpleTransform*>(&transform);
  if (simple == nullptr || !isFinite(*simple)) {
    return {IDENTITY};
  }
  const Placement matrix = matrixOf(*simple);
  if (const auto* const repeat = dynamic_cast<const lum::PeriodicRepeatTransform*>(simple)) {
    return repetitions(matrix, repeat->getNumRepeats());
  }
  return isUsable(matrix) ? Placements{matrix} : Placements{};
}

}  // namespace

SharedPlacements place(const lum::Transform* transform, const SharedPlacements& owner) {
  if (transform == nullptr) {
    return owner;
  }
  Placements own = placementsOf(*transform);
  if (own == Placements{IDENTITY}) {
    return owner;
  }
  if (owner == nullptr) {
    return std::make_shared<const Placements>(std::move(own));
  }
  if (owner->size() * own.size() > MOST_PLACEMENTS) {
    VEMO_LOG_WARNING("Of " << owner->size() * own.size() << " repeats only the first " << MOST_PLACEMENTS
                           << " are shown");
  }
  Placements result;
  for (const Placement& outer : *owner) {
    for (const Placement& inner : own) {
      const Placement both = product(outer, inner);
      if (result.size() < MOST_PLACEMENTS && isUsable(both)) {
        result.push_back(both);
      }
    }
  }
  return std::make_shared<const Placements>(std::move(result));
}

vtkSmartPointer<vtkMatrix4x4> toMatrix(const double* placement) {
  auto matrix = vtkSmartPointer<vtkMatrix4x4>::New();
  matrix->DeepCopy(placement);
  return matrix;
}

Vector<3, double> placed(const Vector<3, double>& point, const double* placement) {
  if (placement == nullptr) {
    return point;
  }
  Vector<4, double> result{point[0], point[1], point[2], 1.0};
  vtkMatrix4x4::MultiplyPoint(placement, result.data(), result.data());
  return {result[0], result[1], result[2]};
}

}  // namespace vemo
