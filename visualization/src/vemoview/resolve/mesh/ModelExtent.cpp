#include "vemoview/resolve/mesh/ModelExtent.h"

#include "geometry/Bounds.h"
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

/// Of all meshes together, and of their instances.
struct Extent {
  Box all;
  double largestInstance = 0.0;
  /// Lines and points are seen however small they are.
  bool isOfFacesOnly = true;
};

/// VTK keeps the bounds of all points for when they are drawn.
Box boundsOfFinite(vtkPolyData& geometry) {
  const Box bounds = boundsOf(geometry);
  return isFinite(bounds.low) && isFinite(bounds.high) ? bounds
                                                       : finiteBounds(*geometry.GetPoints()->GetData());
}

/// Returns the bounds of the mesh's instances together.
Box addInstances(const MeshInstance& mesh, Extent& extent) {
  const auto corners = boundsOfFinite(*mesh.geometry).corners();
  Box all;
  forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
    Box instance;
    for (const Vector3& corner : corners) {
      instance.add(transformedPoint(transform, corner));
    }
    extent.largestInstance = std::max(extent.largestInstance, instance.longestSide());
    all.add(instance.low);
    all.add(instance.high);
  });
  extent.all.add(all.low);
  extent.all.add(all.high);
  return all;
}

void reportIfTooFar(const lum::PolyDataNode& node, const Box& bounds) {
  for (const double end : {std::ranges::min(bounds.low), std::ranges::max(bounds.high)}) {
    if (std::abs(end) > FARTHEST) {
      const NodeScope scope(node);
      reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                    fmt::format("Points reach to {:g}, which is too far to be drawn", end));
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
  if (side < SMALLEST) {
    reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                  fmt::format("Nothing of the model is seen: it extends over {:g} only", side));
  } else if (extent.isOfFacesOnly && side > PIXELS * extent.largestInstance) {
    reportFinding(
        FindingCode::GEOMETRY_NOT_DRAWN,
        fmt::format("Nothing of the model is seen: it extends over {:g}, but no part of it over more "
                    "than {:g}",
                    side, extent.largestInstance));
  }
}

}  // namespace vemo
