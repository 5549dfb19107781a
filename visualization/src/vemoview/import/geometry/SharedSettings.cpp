#include "vemoview/import/geometry/SharedSettings.h"

#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/attributes/ContourAttributes.h>
#include <vemo/scenegraph/attributes/LineAttributes.h>
#include <vemo/scenegraph/attributes/MaterialAttributes.h>
#include <vemo/scenegraph/attributes/MeshAttributes.h>
#include <vemo/scenegraph/attributes/PointAttributes.h>
#include <vemo/scenegraph/attributes/PointSizeAttributes.h>
#include <vemo/scenegraph/drawables/GeometryDrawable.h>

#include <algorithm>

namespace vemo {

namespace {

template <class... Attributes>
bool isAnyOf(const lum::Node& node) {
  return ((dynamic_cast<const Attributes*>(&node) != nullptr) || ...);
}

}  // namespace

SharedSettings::SharedSettings(lum::GeometryDrawable& drawable, const PartsDrawn& parts) {
  const lum::ColorAttributes& colors = *drawable.getColorAttributes();
  _colorMode = colors.getColorMode();
  _color = colors.getColor();
  _opacity = colors.getOpacity();
  const auto* const mesh = drawable.findAttributes<lum::MeshAttributes>();
  const auto* const contour = drawable.findAttributes<lum::ContourAttributes>();
  _showsEdges =
      (mesh != nullptr && mesh->getMeshVisible()) || (contour != nullptr && contour->getContourVisible());
  auto& all = drawable.getAttributesCollection();
  lum::forEachNode(all, [&](const lum::Node& node) {
    if (&node != &all && &node != &colors && hasEffect(node, parts)) {
      std::uint64_t& changed = isAnyOf<lum::MaterialAttributes>(node) ? _lightingChanged : _changed;
      changed = std::max(changed, node.getModificationTime());
    }
  });
}

SharedSettings SharedSettings::withoutLighting() const {
  SharedSettings others = *this;
  others._lightingChanged = 0;
  return others;
}

bool SharedSettings::hasEffect(const lum::Node& attributes, const PartsDrawn& parts) const {
  if (isAnyOf<lum::MeshAttributes, lum::LineAttributes>(attributes)) {
    return _showsEdges || parts.lines;
  }
  return parts.points || !isAnyOf<lum::PointAttributes, lum::PointSizeAttributes>(attributes);
}

}  // namespace vemo
