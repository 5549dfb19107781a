#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

#include <array>

namespace lum {

/// How the size of points follows a data array.
LUM_ENUM(PointScaleMode,
         /// All points have the same size.
         (CONSTANT, "constant"),
         /// The scalar range maps linearly to the sizes; values outside it have the size at its end.
         (LINEAR, "linear"),
         /// The same with the logarithm of the scalar.
         (LOG10, "logarithmic"))

/// Points of different sizes.
class VEMO_SCENEGRAPH_EXPORT PointScaleAttributes final : public Attributes {
  LUM_NODE(PointScaleAttributes, Attributes)
  LUM_ENUMERATION(PointScaleMode, ScaleMode, _scaleMode, PointScaleMode::CONSTANT)
  /// Whether sizes are in pixels, or else in model units.
  LUM_VALUE(bool, PixelSize, _pixelSize, true)
  /// The name of an array over the points.
  LUM_VALUE(std::string, ScalarName, _scalarName)
  LUM_VALUE(Vector2, ScalarRange, _scalarRange, {0.0, 1.0})
  /// The sizes at the two ends of the scalar range.
  LUM_VALUE(Vector2, MapToRange, _mapToRange, {1.0, 1.0})

 public:
  /// Which ends of the range, or which sizes, could not be read, as a finding says, and count as 0:
  /// what follows from that is then not another finding. Not stored.
  const std::array<bool, 2>& getUnknownRange() const { return _unknownRange; }
  void setUnknownRange(const std::array<bool, 2>& ends) { _unknownRange = ends; }
  const std::array<bool, 2>& getUnknownSizes() const { return _unknownSizes; }
  void setUnknownSizes(const std::array<bool, 2>& ends) { _unknownSizes = ends; }

 private:
  std::array<bool, 2> _unknownRange{};
  std::array<bool, 2> _unknownSizes{};
};

}  // namespace lum
