#pragma once

#include "SceneBlocks.h"

#include <vtkSmartPointer.h>

#include <memory>
#include <vector>

class vtkPolyData;

namespace vemo {

/// The colours of a data set's blocks. Blocks may share lists of very many colours: each is made once.
struct BlockColors;
std::shared_ptr<BlockColors> makeBlockColors();

/// The geometry of a block, once for each of its instances. Field data say how the scene shows it.
/// Arrays are shared with the scene and between instances where these are equal.
/// @param withColors adds an array of colours
std::vector<vtkSmartPointer<vtkPolyData>> makeBlockData(const SceneBlock& block, BlockColors& colors,
                                                        bool withColors);

}  // namespace vemo
