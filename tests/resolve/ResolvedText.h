#pragma once

#include <vemo/resolve/ResolvedScene.h>

#include <string>

namespace vemo {

/// What is seen of a scene as text for comparison with what is expected: a line for each
/// canvas, and below it one for each light, clipping plane, mesh and decoration, with
/// those of its values that are not as in a new one.
std::string resolvedText(const ResolvedScene& scene);

}  // namespace vemo
