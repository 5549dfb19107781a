#pragma once

#include <vemo/scenegraph/Export.h>

#include <string>
#include <vector>

namespace lum {

class Drawable;
class SceneNode;

/// The drawables that a user means by a name, the end of a path such as "wing/flap", or a
/// whole path ("ModelCanvas/DrawableCollection/wing/flap", in the form that
/// <vemo/scenegraph/inspect/JsonPrinter.h> describes): at least one, in the scene's order.
/// Throws EditError when there is none, with similar names.
VEMO_SCENEGRAPH_EXPORT std::vector<Drawable*> findItems(SceneNode& scene, const std::string& item);

/// Whether the drawable itself is visible; one that contains it may be hidden.
VEMO_SCENEGRAPH_EXPORT bool isShown(const Drawable& drawable);

/// Shows or hides the drawable itself.
VEMO_SCENEGRAPH_EXPORT void setShown(Drawable& drawable, bool isShown);

/// Shows a drawable. Hidden drawables that contain it are shown, too, but without their
/// other drawables.
VEMO_SCENEGRAPH_EXPORT void reveal(Drawable& drawable);

/// Reveals a drawable and shows everything in it.
VEMO_SCENEGRAPH_EXPORT void revealAll(Drawable& drawable);

}  // namespace lum
