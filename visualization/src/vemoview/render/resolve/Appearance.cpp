#include "vemoview/render/resolve/Appearance.h"

#include <vemo/scenegraph/attributes/RenderingAttributes.h>

#include <algorithm>
#include <cmath>

namespace vemo {

namespace {

using Color = Vector<3, double>;

double unitValue(double value, double otherwise) {
  return std::isfinite(value) ? std::clamp(value, 0.0, 1.0) : otherwise;
}

Color drawableColor(const Color& color) {
  return {unitValue(color[0], 0.0), unitValue(color[1], 0.0), unitValue(color[2], 0.0)};
}

/// Wider than any screen is no use, and a driver need not take it.
double pixels(double value) {
  constexpr double WIDEST = 4096.0;
  return std::isfinite(value) && value > 0.0 ? std::min(value, WIDEST) : 1.0;
}

Appearance::Kind kindOf(const lum::GeometryDrawable& drawable) {
  if (dynamic_cast<const lum::PointSphereDrawable*>(&drawable) != nullptr) {
    return Appearance::Kind::POINTS;
  }
  return dynamic_cast<const lum::PolyLineDrawable*>(&drawable) != nullptr ? Appearance::Kind::LINES
                                                                          : Appearance::Kind::SURFACE;
}

/// The mode says which of the two colours counts; where that one is missing,
/// the other is better than none. Colouring by data falls back on them too.
Color colorOf(const lum::ColorAttributes* attributes, const std::string& key, const Color& otherwise) {
  if (attributes == nullptr) {
    return otherwise;
  }
  const auto found = attributes->getColors().find(key);
  const Color* const keyed = found == attributes->getColors().end() ? nullptr : &found->second;
  const Color* const plain = attributes->getColor() ? &*attributes->getColor() : nullptr;
  const bool isPlainFirst = attributes->getColorMode() == lum::ColorMode::PLAIN;
  const Color* const first = isPlainFirst ? plain : keyed;
  const Color* const second = isPlainFirst ? keyed : plain;
  return first != nullptr ? drawableColor(*first) : second != nullptr ? drawableColor(*second) : otherwise;
}

double pointSizeOf(const lum::GeometryDrawable& drawable, Appearance::Kind kind) {
  if (kind == Appearance::Kind::POINTS) {
    const auto* const size = drawable.findAttributes<lum::PointSizeAttributes>();
    return size != nullptr ? pixels(size->getPointSize()) : 1.0;
  }
  const auto* const size = drawable.findAttributes<lum::PointAttributes>();
  return size != nullptr ? pixels(size->getSize()) : 1.0;
}

void applyMaterial(const lum::MaterialAttributes& material, Appearance& appearance) {
  constexpr double GREATEST_POWER = 128.0;
  const double power = material.getSpecularPower();
  appearance.ambient = unitValue(material.getAmbient(), appearance.ambient);
  appearance.diffuse = unitValue(material.getDiffuse(), appearance.diffuse);
  appearance.specular = unitValue(material.getSpecular(), appearance.specular);
  appearance.specularPower = std::isfinite(power) ? std::clamp(power, 0.0, GREATEST_POWER) : 1.0;
}

}  // namespace

Appearance Appearance::of(const lum::GeometryDrawable& drawable, const lum::PolyDataNode& piece) {
  Appearance result;
  result.kind = kindOf(drawable);
  const auto* const colors = drawable.findAttributes<lum::ColorAttributes>();
  result.color = colorOf(colors, piece.getName(), result.kind == Kind::POINTS ? POINT_COLOR : SURFACE_COLOR);
  result.opacity = colors != nullptr ? unitValue(colors->getOpacity(), 1.0) : 1.0;
  result.pointSize = pointSizeOf(drawable, result.kind);
  if (const auto* const surface = drawable.findAttributes<lum::SurfaceAttributes>()) {
    result.hasFaces = surface->getShaded();
  }
  if (const auto* const mesh = drawable.findAttributes<lum::MeshAttributes>()) {
    result.hasEdges = mesh->getMeshVisible();
    result.edgeColor = drawableColor(mesh->getMeshColor());
  }
  if (const auto* const contour = drawable.findAttributes<lum::ContourAttributes>()) {
    result.hasContour = result.kind == Kind::SURFACE && contour->getContourVisible();
  }
  if (const auto* const line = drawable.findAttributes<lum::LineAttributes>()) {
    result.lineWidth = pixels(line->getLineWidth());
  }
  if (const auto* const material = drawable.findAttributes<lum::MaterialAttributes>()) {
    applyMaterial(*material, result);
  }
  return result;
}

void Appearance::setPointSize(const lum::PointScaleAttributes& scale, double place) {
  const auto& sizes = scale.getMapToRange();
  const double size = (1.0 - place) * sizes[0] + place * sizes[1];
  hasModelSize = !scale.getPixelSize() && std::isfinite(size) && size > 0.0;
  pointSize = hasModelSize ? size : pixels(size);
}

}  // namespace vemo
