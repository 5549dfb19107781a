#pragma once

#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/scenegraph/coloring/ColorAttributes.h>

#include <cstdint>
#include <optional>

namespace lum {
class GeometryDrawable;
}

namespace vemo {

/// Everything that geometries with a common drawable share and that has an effect:
/// all attributes except each one's colours.
class SharedSettings {
 public:
  SharedSettings(lum::GeometryDrawable& drawable, const PartsDrawn& parts);
  bool operator==(const SharedSettings&) const = default;

  /// The others.
  SharedSettings withoutLighting() const;

 private:
  bool hasEffect(const lum::Node& attributes, const PartsDrawn& parts) const;

  lum::ColorMode _colorMode;
  std::optional<lum::Vector3> _color;
  double _opacity;
  /// Of a surface: its edges or its contour.
  bool _showsEdges = false;
  std::uint64_t _lightingChanged = 0;
  /// All but lighting and colours.
  std::uint64_t _changed = 0;
};

}  // namespace vemo
