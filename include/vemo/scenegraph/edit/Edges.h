#pragma once

#include <vemo/scenegraph/Export.h>

namespace lum {

class SceneNode;

/// Whether the edges of any surface are shown.
VEMO_SCENEGRAPH_EXPORT bool areEdgesShown(SceneNode& scene);

/// Shows or hides the edges of all surfaces.
VEMO_SCENEGRAPH_EXPORT void setEdgesShown(SceneNode& scene, bool areShown);

}  // namespace lum
