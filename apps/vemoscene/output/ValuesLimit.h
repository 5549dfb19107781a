#pragma once

namespace vemo {

struct OpenedScene;

/// Throws Failure (READ_ERROR) when many nodes share lists of colours, or arrays, so that their values,
/// printed for each node, are out of proportion to them.
/// @param withArrays whether the values of arrays are printed
void requireValuesInProportion(const OpenedScene& scene, bool withArrays);

}  // namespace vemo
