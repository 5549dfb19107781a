#pragma once

#include "SceneOutline.h"

#include <cstddef>
#include <vector>

class vtkPartitionedDataSetCollection;

namespace vemo {

struct BlockColors;

/// Gives the collection a data set without partitions for each chosen block, with its name, and the
/// assembly of all. The same in every process.
void makeCollection(const SceneOutline& outline, const std::vector<std::size_t>& chosen,
                    vtkPartitionedDataSetCollection& collection);

/// Puts the instances of a block in the place of its data set.
/// @param colors of all blocks of the collection
void putBlock(const SceneBlock& block, BlockColors& colors, bool withColors, unsigned place,
              vtkPartitionedDataSetCollection& collection);

}  // namespace vemo
