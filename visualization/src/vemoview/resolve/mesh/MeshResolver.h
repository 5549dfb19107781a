#pragma once

#include "vemoview/resolve/drawables/VisibleDrawables.h"
#include "vemoview/resolve/mesh/DrawingLoad.h"
#include "vemoview/resolve/values/ColorTableResolver.h"
#include <vemo/resolve/MeshInstance.h>
#include <vemo/resolve/SceneResolver.h>

#include <vtkType.h>

#include <cstddef>
#include <vector>

namespace vemo {

/// Resolves the meshes of drawables, as long as all of them together are not
/// too large.
class MeshResolver {
 public:
  /// For a canvas with some clipping planes. The tables must outlive it.
  MeshResolver(std::size_t clipPlanes, ColorTables& tables, const ResolveOptions& options);

  /// The meshes of drawables, in order. Throws SceneTooLarge when together with
  /// those resolved before they are too large to be drawn; those then do not
  /// count.
  std::vector<MeshInstance> resolve(const std::vector<VisibleDrawable>& drawables);

 private:
  class Run;

  vtkIdType timesDrawn(const SharedInstanceTransforms& transforms, bool isClipped) const;
  void countSizes(const std::vector<VisibleDrawable>& drawables, DrawingLoad& load) const;
  void countFilling(const MeshInstance& mesh, DrawingLoad& load) const;
  void countCopies(const MeshInstance& mesh, DrawingLoad& load) const;

  ColorTables& _tables;
  MeshArrays _arrays;
  double _pixelScale;
  /// How many planes cut the geometry of each clipped instance separately.
  vtkIdType _cutsPerInstance;
  DrawingLoad _load;
};

}  // namespace vemo
