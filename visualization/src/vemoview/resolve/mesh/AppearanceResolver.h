#pragma once

#include <vemo/resolve/Appearance.h>
#include <vemo/scenegraph/drawables/GeometryDrawable.h>

#include <string>

namespace vemo {

/// What the attributes of a drawable say about its meshes.
Appearance resolveAppearance(const lum::GeometryDrawable& drawable);

/// The plain colour of a drawable's mesh, by the name that its colours have for
/// it.
Vector<3, double> resolveColor(const lum::GeometryDrawable& drawable, const std::string& key);

}  // namespace vemo
