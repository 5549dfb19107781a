#pragma once

#include "vemoview/resolve/drawables/VisibleDrawables.h"
#include "vemoview/resolve/mesh/DrawingLoad.h"
#include "vemoview/resolve/mesh/PointScaling.h"
#include "vemoview/resolve/mesh/PreparedMeshes.h"
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

  /// The last of them do not count.
  void takeBack();

 private:
  vtkIdType timesDrawn(const SharedInstanceTransforms& transforms, bool isClipped) const;
  void countSizes(const std::vector<VisibleDrawable>& drawables);
  void countFilling(const MeshInstance& mesh);
  void countCopies(const MeshInstance& mesh);
  void countMade(const lum::PolyDataNode& node);
  void add(const lum::GeometryDrawable& drawable, const VisibleDrawable& context,
           std::vector<MeshInstance>& meshes);
  void add(MeshInstance mesh, const lum::GeometryDrawable& drawable, std::vector<MeshInstance>& meshes);

  ColorTables& _tables;
  MeshArrays _arrays;
  double _pixelScale;
  /// How many planes cut the geometry of each clipped instance separately.
  vtkIdType _cutsPerInstance;
  DrawingLoad _load;
  /// Before the last meshes.
  DrawingLoad _formerLoad;
  ContentCount _content;
  PreparedMeshes _prepared;
  SizedPoints _sizes;
};

}  // namespace vemo
