#pragma once

namespace vemo {

struct OpenedScene;

/// Throws Failure (READ_ERROR) when many nodes share arrays, so that their values, printed for
/// each node, are out of proportion to the arrays.
void requireValuesInProportion(const OpenedScene& scene);

}  // namespace vemo
