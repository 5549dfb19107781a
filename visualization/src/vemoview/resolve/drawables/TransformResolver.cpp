#include "vemoview/resolve/drawables/TransformResolver.h"

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/transforms/PeriodicRepeatTransform.h>
#include <vemo/scenegraph/transforms/SimpleTransform.h>
#include <vemo/scenegraph/transforms/SymmetricTransform.h>

#include <vtkMath.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkTransform.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vemo {

namespace {

/// Repeats within repeats multiply.
constexpr std::size_t MAX_INSTANCES = 10000;

constexpr InstanceTransform IDENTITY = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

InstanceTransform product(const InstanceTransform& outer, const InstanceTransform& inner) {
  InstanceTransform result;
  vtkMatrix4x4::Multiply4x4(outer.data(), inner.data(), result.data());
  return result;
}

/// Whether lengths in all directions become at most so many times longer or shorter.
/// OpenGL computes the squares of those of normals with single precision.
bool hasUsableScales(const InstanceTransform& transform) {
  constexpr double MAX_FACTOR = 1e18;
  const Vector3 rows[] = {toVector(&transform[0]), toVector(&transform[4]), toVector(&transform[8])};
  const Vector3 cofactors[] = {cross(rows[1], rows[2]), cross(rows[2], rows[0]), cross(rows[0], rows[1])};
  const double volume = std::abs(dot(rows[0], cofactors[0]));
  const auto norm = [](const Vector3(&matrix)[3]) {
    return std::hypot(length(matrix[0]), length(matrix[1]), length(matrix[2]));
  };
  return volume > 1.0 / (MAX_FACTOR * MAX_FACTOR * MAX_FACTOR) && norm(rows) < 2.0 * MAX_FACTOR &&
         norm(cofactors) / volume < 2.0 * MAX_FACTOR;
}

/// Whether something so transformed can be drawn. Also false for NaN.
bool isUsable(const InstanceTransform& transform) {
  constexpr double MAX_COEFFICIENT = 1e30;
  return std::ranges::all_of(transform, [](double value) { return std::abs(value) < MAX_COEFFICIENT; }) &&
         hasUsableScales(transform);
}

InstanceTransform matrixOf(const lum::SimpleTransform& transform) {
  const auto& origin = transform.getRotationOrigin();
  const auto& axis = transform.getRotationAxis();
  const auto& move = transform.getTranslation();
  const auto& scale = transform.getScale();
  vtkNew<vtkTransform> steps;
  steps->PostMultiply();
  if (scale != Vector3{}) {
    steps->Scale(scale.data());
  }
  steps->Translate(-origin[0], -origin[1], -origin[2]);
  steps->RotateWXYZ(vtkMath::DegreesFromRadians(transform.getRotationAngle()), axis.data());
  steps->Translate(origin[0] + move[0], origin[1] + move[1], origin[2] + move[2]);
  InstanceTransform result;
  std::copy_n(steps->GetMatrix()->GetData(), result.size(), result.begin());
  return result;
}

bool isFinite(const lum::SimpleTransform& transform) {
  return isFinite(transform.getRotationOrigin()) && isFinite(transform.getRotationAxis()) &&
         isFinite(transform.getTranslation()) && isFinite(transform.getScale()) &&
         std::isfinite(transform.getRotationAngle());
}

/// x' = x - 2 (n x + d) / (n n) n, for a plane n x + d = 0.
InstanceTransform reflection(const Vector<4, double>& plane) {
  const double square = plane[0] * plane[0] + plane[1] * plane[1] + plane[2] * plane[2];
  InstanceTransform result = IDENTITY;
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      result[4 * row + column] -= 2.0 * plane[row] * plane[column] / square;
    }
  }
  return result;
}

void reportNotUsable() {
  reportFinding(FindingCode::TRANSFORM_UNUSABLE,
                "Not drawn: the transforms make it too small or too large, or move it too far away");
}

/// What is limited has fewer repeats than it states: further repeats of it are not counted.
void reportIfTooMany(std::size_t count, bool& areLimited) {
  if (count > MAX_INSTANCES && !std::exchange(areLimited, true)) {
    reportFinding(FindingCode::REPEATS_LIMITED, "Of " + std::to_string(count) + " repeats only the first " +
                                                    std::to_string(MAX_INSTANCES) + " are shown");
  }
}

/// Each relative to the previous one; stops at the first that is unusable.
InstanceTransforms repetitions(const InstanceTransform& step, std::int32_t count, bool& areLimited) {
  InstanceTransforms result{IDENTITY};
  if (step == IDENTITY) {
    return result;
  }
  const auto stated = static_cast<std::size_t>(std::max(count, 1));
  reportIfTooMany(stated, areLimited);
  while (result.size() < std::min(stated, MAX_INSTANCES)) {
    const InstanceTransform next = product(step, result.back());
    if (!isUsable(next)) {
      reportNotUsable();
      break;
    }
    result.push_back(next);
  }
  return result;
}

/// The instances that a transform creates on its own.
InstanceTransforms instancesOf(const lum::Transform& transform, bool& areLimited) {
  if (const auto* const mirror = dynamic_cast<const lum::SymmetricTransform*>(&transform)) {
    const Vector<4, double>& plane = mirror->getPlane();
    const InstanceTransform image = reflection(plane);
    if (isUsable(image)) {
      return {IDENTITY, image};
    }
    // Reading says of a mirror without a normal that it does not mirror.
    if (plane[0] != 0.0 || plane[1] != 0.0 || plane[2] != 0.0) {
      reportNotUsable();
    }
    return {IDENTITY};
  }
  const auto* const simple = dynamic_cast<const lum::SimpleTransform*>(&transform);
  if (simple != nullptr && !isFinite(*simple)) {
    reportFinding(FindingCode::TRANSFORM_UNUSABLE, "A transform is not applied: its values are not finite");
    return {IDENTITY};
  }
  if (simple == nullptr) {
    return {IDENTITY};
  }
  const InstanceTransform matrix = matrixOf(*simple);
  if (const auto* const repeat = dynamic_cast<const lum::PeriodicRepeatTransform*>(simple)) {
    return repetitions(matrix, repeat->getNumRepeats(), areLimited);
  }
  if (isUsable(matrix)) {
    return {matrix};
  }
  // Scaling by zero in some directions is reported when the scene is read; in all of them, it
  // does not scale.
  const auto zeros = std::ranges::count(simple->getScale(), 0.0);
  if (zeros == 0 || zeros == 3) {
    reportNotUsable();
  }
  return {};
}

}  // namespace

SharedInstanceTransforms resolveTransforms(const lum::Transform* transform,
                                           const SharedInstanceTransforms& owner, bool& areLimited) {
  if (transform == nullptr) {
    return owner;
  }
  InstanceTransforms own = instancesOf(*transform, areLimited);
  if (own == InstanceTransforms{IDENTITY}) {
    return owner;
  }
  if (owner == nullptr) {
    return std::make_shared<const InstanceTransforms>(std::move(own));
  }
  reportIfTooMany(owner->size() * own.size(), areLimited);
  InstanceTransforms result;
  bool areAllUsable = true;
  for (const InstanceTransform& outer : *owner) {
    for (const InstanceTransform& inner : own) {
      const InstanceTransform both = product(outer, inner);
      if (!isUsable(both)) {
        areAllUsable = false;
      } else if (result.size() < MAX_INSTANCES) {
        result.push_back(both);
      }
    }
  }
  if (!areAllUsable) {
    reportNotUsable();
  }
  return std::make_shared<const InstanceTransforms>(std::move(result));
}

}  // namespace vemo
