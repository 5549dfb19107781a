#pragma once

#include <vemo/render/Export.h>
#include <vemo/resolve/ResolvedScene.h>

namespace vemo {

/// Throws SceneTooLarge if SceneRenderer would refuse the scene because drawing it would take memory
/// out of proportion: very many small meshes that look different. Draws nothing, and needs no OpenGL.
VEMO_RENDER_EXPORT void requireDrawable(const ResolvedScene& scene);

}  // namespace vemo
