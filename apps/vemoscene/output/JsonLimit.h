#pragma once

namespace vemo {

struct OpenedScene;

/// Throws Failure (READ_ERROR) when the JSON of the scene would be out of proportion to it, since what
/// nodes share is printed for each of them: arrays with their values, and names in the paths of references.
void requireJsonInProportion(const OpenedScene& scene, bool withValues);

}  // namespace vemo
