#pragma once

#include "SceneBlocks.h"

#include <vtkSmartPointer.h>

#include <vector>

class vtkPolyData;

namespace vemo {

/// The geometry of a block, once for each of its instances. Field data say how the scene shows it.
/// Arrays are shared with the scene and between instances where these are equal.
/// @param withColors adds an array of colours
std::vector<vtkSmartPointer<vtkPolyData>> makeBlockData(const SceneBlock& block, bool withColors);

}  // namespace vemo
