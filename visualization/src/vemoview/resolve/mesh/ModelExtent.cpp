#include "vemoview/resolve/mesh/ModelExtent.h"

#include "geometry/Bounds.h"
#include "vemoview/resolve/InstanceBounds.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/resolve/CanvasCamera.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace vemo {

namespace {

/// The extent of all meshes together, and of single instances.
struct Extent {
  Box all;
  double largestInstance = 0.0;
  /// Lines and points are visible however small they are.
  bool isOfFacesOnly = true;
};

/// Bounds of all points are computed once: VTK keeps them for drawing.
Box boundsOfFinite(vtkPolyData& geometry) {
  const Box bounds = boundsOf(geometry);
  return isFinite(bounds.low) && isFinite(bounds.high) ? bounds
                                                       : finiteBounds(*geometry.GetPoints()->GetData());
}

/// Returns the bounds of the mesh's instances together.
Box addInstances(const MeshInstance& mesh, Extent& extent) {
  const Box bounds = boundsOfFinite(*mesh.geometry);
  Box all;
  forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
    const Box instance = instanceBounds(transform, bounds);
    extent.largestInstance = std::max(extent.largestInstance, instance.longestSide());
    all.add(instance);
  });
  extent.all.add(all);
  return all;
}

void reportIfTooFar(const lum::PolyDataNode& node, const Box& bounds) {
  for (const double end : {std::ranges::min(bounds.low), std::ranges::max(bounds.high)}) {
    if (std::abs(end) > lum::GREATEST_COORDINATE) {
      const NodeScope scope(node);
      reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                    fmt::format("The coordinate {:g} is too large to be drawn", end));
      return;
    }
  }
}

}  // namespace

void reportUnseenExtent(const std::vector<MeshInstance>& meshes, const CanvasCamera& camera) {
  constexpr double PIXELS = 1e5;  // More than a picture is wide.
  Extent extent;
  const MeshInstance* former = nullptr;
  for (const MeshInstance& mesh : meshes) {
    // The parts of a mesh share its points.
    if (former == nullptr || former->node != mesh.node || former->transforms != mesh.transforms) {
      reportIfTooFar(*mesh.node, addInstances(mesh, extent));
    }
    const Appearance& appearance = mesh.appearance;
    extent.isOfFacesOnly = extent.isOfFacesOnly && appearance.kind == Appearance::Kind::SURFACE &&
                           !appearance.hasEdges && !appearance.hasContour;
    former = &mesh;
  }
  const double side = extent.all.longestSide();
  if (!camera.framesAll() || side <= 0.0) {
    return;
  }
  // Something smaller would be viewed from a distance that VTK does not allow.
  if (side < lum::LEAST_DISTANCE) {
    reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                  fmt::format("Nothing of the model is visible: its size is only {:g}", side));
  } else if (extent.isOfFacesOnly && side > PIXELS * extent.largestInstance) {
    reportFinding(
        FindingCode::GEOMETRY_NOT_DRAWN,
        fmt::format("Nothing of the model is visible: its size is {:g}, but no part of it is larger "
                    "than {:g}",
                    side, extent.largestInstance));
  }
}

}  // namespace vemo
