#include "vemoview/resolve/mesh/AppearanceResolver.h"

#include "base/Utf8.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/attributes/ContourAttributes.h>
#include <vemo/scenegraph/attributes/LineAttributes.h>
#include <vemo/scenegraph/attributes/MaterialAttributes.h>
#include <vemo/scenegraph/attributes/MeshAttributes.h>
#include <vemo/scenegraph/attributes/PointAttributes.h>
#include <vemo/scenegraph/attributes/PointSizeAttributes.h>
#include <vemo/scenegraph/attributes/SurfaceAttributes.h>
#include <vemo/scenegraph/coloring/ColorAttributes.h>
#include <vemo/scenegraph/drawables/PointSphereDrawable.h>
#include <vemo/scenegraph/drawables/PolyLineDrawable.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace vemo {

namespace {

using Color = Vector3;

/// The colour of points without one: it has the same contrast to black as to
/// white (about 4.5 to 1).
constexpr Color POINT_COLOR{0.85, 0.27, 0.05};
/// The colour of lines and surfaces without one.
constexpr Color SURFACE_COLOR{1.0, 1.0, 1.0};

/// The attributes that lines of a surface share with its edges; null without any.
const lum::MeshAttributes* edgesForLines(const lum::GeometryDrawable& drawable, Appearance::Kind kind) {
  return kind == Appearance::Kind::LINES && kindOf(drawable) == Appearance::Kind::SURFACE
             ? drawable.findAttributes<lum::MeshAttributes>()
             : nullptr;
}

/// A vertex of a surface or line has the colour of points.
bool isVertexOfOthers(const lum::GeometryDrawable& drawable, Appearance::Kind kind) {
  return kind == Appearance::Kind::POINTS && kindOf(drawable) != Appearance::Kind::POINTS;
}

double opacityOf(const lum::GeometryDrawable& drawable, Appearance::Kind kind) {
  if (const auto* const edges = edgesForLines(drawable, kind)) {
    return unitValue(edges->getMeshOpacity(), 1.0);
  }
  const auto* const colors = drawable.findAttributes<lum::ColorAttributes>();
  return colors != nullptr && !isVertexOfOthers(drawable, kind) ? unitValue(colors->getOpacity(), 1.0) : 1.0;
}

double pointSizeOf(const lum::GeometryDrawable& drawable, Appearance::Kind kind) {
  if (kind == Appearance::Kind::POINTS) {
    const auto* const size = drawable.findAttributes<lum::PointSizeAttributes>();
    return size != nullptr ? usablePixels(size->getPointSize()) : 1.0;
  }
  const auto* const size = drawable.findAttributes<lum::PointAttributes>();
  return size != nullptr ? usablePixels(size->getSize()) : 1.0;
}

void applyMaterial(const lum::MaterialAttributes& material, Appearance& appearance) {
  constexpr double MAX_POWER = 128.0;
  const double power = material.getSpecularPower();
  appearance.ambient = unitValue(material.getAmbient(), appearance.ambient);
  appearance.diffuse = unitValue(material.getDiffuse(), appearance.diffuse);
  appearance.specular = unitValue(material.getSpecular(), appearance.specular);
  appearance.specularPower = std::isfinite(power) ? std::clamp(power, 0.0, MAX_POWER) : 1.0;
}

void applySurface(const lum::GeometryDrawable& drawable, Appearance& appearance) {
  if (const auto* const surface = drawable.findAttributes<lum::SurfaceAttributes>()) {
    appearance.hasFaces = surface->getShaded();
  }
  if (const auto* const mesh = drawable.findAttributes<lum::MeshAttributes>()) {
    appearance.hasEdges = mesh->getMeshVisible();
    appearance.edgeColor = usableColor(mesh->getMeshColor());
    appearance.edgeOpacity = unitValue(mesh->getMeshOpacity(), 1.0);
  }
  if (const auto* const contour = drawable.findAttributes<lum::ContourAttributes>()) {
    appearance.hasContour = contour->getContourVisible();
  }
  appearance.hasFaces = appearance.hasFaces && appearance.opacity > 0.0;
  appearance.hasEdges = appearance.hasEdges && appearance.edgeOpacity > 0.0;
  appearance.hasContour = appearance.hasContour && appearance.edgeOpacity > 0.0;
}

}  // namespace

Appearance::Kind kindOf(const lum::GeometryDrawable& drawable) {
  if (dynamic_cast<const lum::PointSphereDrawable*>(&drawable) != nullptr) {
    return Appearance::Kind::POINTS;
  }
  return dynamic_cast<const lum::PolyLineDrawable*>(&drawable) != nullptr ? Appearance::Kind::LINES
                                                                          : Appearance::Kind::SURFACE;
}

/// The mode selects one of the two colours. If that one is missing, the other
/// is used; colouring by data falls back on them, too.
Color resolveColor(const lum::GeometryDrawable& drawable, Appearance::Kind kind, const std::string& key) {
  if (const auto* const edges = edgesForLines(drawable, kind)) {
    return usableColor(edges->getMeshColor());
  }
  const Color& fallback = kind == Appearance::Kind::POINTS ? POINT_COLOR : SURFACE_COLOR;
  const auto* const attributes = drawable.findAttributes<lum::ColorAttributes>();
  if (attributes == nullptr || isVertexOfOthers(drawable, kind)) {
    return fallback;
  }
  const auto found = attributes->getColors().find(key);
  const Color* const keyed = found == attributes->getColors().end() ? nullptr : &found->second;
  const Color* const plain = attributes->getColor() ? &*attributes->getColor() : nullptr;
  if (keyed == nullptr && attributes->getColorMode() == lum::ColorMode::KEYED) {
    reportFinding(FindingCode::VALUE_IGNORED,
                  fmt::format("The colours of \"{}\" have none for \"{}\": {} is used", itemNameOf(drawable),
                              shortName(key), plain != nullptr ? "the plain one" : "the default"));
  }
  const bool isPlainFirst = attributes->getColorMode() == lum::ColorMode::PLAIN;
  const Color* const first = isPlainFirst ? plain : keyed;
  const Color* const second = isPlainFirst ? keyed : plain;
  return first != nullptr ? usableColor(*first) : second != nullptr ? usableColor(*second) : fallback;
}

Appearance resolveAppearance(const lum::GeometryDrawable& drawable, Appearance::Kind kind) {
  Appearance result;
  result.kind = kind;
  result.opacity = opacityOf(drawable, kind);
  result.pointSize = pointSizeOf(drawable, kind);
  if (kind == Appearance::Kind::SURFACE && kindOf(drawable) == Appearance::Kind::SURFACE) {
    applySurface(drawable, result);
  }
  if (const auto* const line = drawable.findAttributes<lum::LineAttributes>()) {
    result.lineWidth = usablePixels(line->getLineWidth());
  }
  if (const auto* const material = drawable.findAttributes<lum::MaterialAttributes>()) {
    applyMaterial(*material, result);
  }
  return result;
}

}  // namespace vemo
