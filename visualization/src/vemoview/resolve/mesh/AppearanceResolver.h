#pragma once

#include <vemo/resolve/Appearance.h>
#include <vemo/scenegraph/drawables/GeometryDrawable.h>

#include <string>

namespace vemo {

/// What a drawable shows, by its class. It may have cells of other kinds, too.
Appearance::Kind kindOf(const lum::GeometryDrawable& drawable);

/// The appearance of a drawable's meshes of a kind, from its attributes.
/// Lines of a surface have the opacity of its edges; vertices of surfaces and
/// lines are opaque.
Appearance resolveAppearance(const lum::GeometryDrawable& drawable, Appearance::Kind kind);

/// The plain colour of a drawable's mesh of a kind, by the name that its colours have
/// for it. Lines of a surface have the colour of its edges, vertices of surfaces and
/// lines that of points without one.
Vector3 resolveColor(const lum::GeometryDrawable& drawable, Appearance::Kind kind, const std::string& key);

}  // namespace vemo
