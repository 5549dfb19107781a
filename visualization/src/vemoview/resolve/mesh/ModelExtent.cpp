#include "vemoview/resolve/mesh/ModelExtent.h"

#include "geometry/Bounds.h"
#include "vemoview/resolve/canvas/ViewVolume.h"
#include "vemoview/resolve/drawables/InstanceBounds.h"
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
#include <optional>

namespace vemo {

namespace {

/// The extent of all meshes together, and of single instances.
struct Extent {
  explicit Extent(const CanvasCamera& camera) {
    if (!camera.framesAll()) {
      view.emplace(camera);
    }
  }

  /// Nothing if everything is framed.
  std::optional<ViewVolume> view;
  /// Of the instances in view; negative without any.
  double largestInView = -1.0;
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
    const double side = instance.longestSide();
    extent.largestInstance = std::max(extent.largestInstance, side);
    if (side > extent.largestInView && extent.view && !extent.view->misses(instance)) {
      extent.largestInView = side;
    }
    all.add(instance);
  });
  extent.all.add(all);
  return all;
}

/// Returns whether it is.
bool reportIfTooFar(const lum::PolyDataNode& node, const Box& bounds) {
  for (const double end : {std::ranges::min(bounds.low), std::ranges::max(bounds.high)}) {
    if (std::abs(end) > lum::GREATEST_COORDINATE) {
      const NodeScope scope(node);
      reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                    fmt::format("The coordinate {:g} is too large to be drawn", end));
      return true;
    }
  }
  return false;
}

/// Of a canvas that shows everything.
void reportInvisible(const Extent& extent) {
  constexpr double PIXELS = 1e5;  // More than a picture is wide.
  const double side = extent.all.longestSide();
  // Something smaller would be viewed from a distance that VTK does not allow.
  if (side < lum::LEAST_DISTANCE) {
    reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                  fmt::format("Nothing of the model is visible: its size is only {:g}", side));
  } else if (extent.isOfFacesOnly && side > PIXELS * extent.largestInstance) {
    reportFinding(
        FindingCode::GEOMETRY_NOT_DRAWN,
        fmt::format(
            "Nothing of the model is visible: its size is {:g}, but no part of it is larger than {:g}", side,
            extent.largestInstance));
  }
}

/// Of a canvas with a stated view.
void reportUnsuitableView(const Extent& extent, const CanvasCamera& camera) {
  // Below, coordinates are wrong by several pixels.
  constexpr double PRECISION = 1e-5;
  if (extent.largestInView < 0.0) {
    reportFinding(FindingCode::VIEW_EMPTY, "The view shows no geometry");
  } else if (camera.isParallel && *camera.parallelScale < PRECISION * extent.largestInView) {
    reportFinding(
        FindingCode::VIEW_IMPRECISE,
        fmt::format(
            "The view shows {:g} units of a geometry of size {:g}: too little for the precision of OpenGL",
            2.0 * *camera.parallelScale, extent.largestInView));
  }
}

}  // namespace

Box reportUnseenExtent(const std::vector<MeshInstance>& meshes, const CanvasCamera& camera) {
  Extent extent(camera);
  const MeshInstance* former = nullptr;
  bool isTooFar = false;
  for (const MeshInstance& mesh : meshes) {
    // The parts of a mesh share its points.
    if (former == nullptr || former->node != mesh.node || former->transforms != mesh.transforms) {
      isTooFar = reportIfTooFar(*mesh.node, addInstances(mesh, extent)) || isTooFar;
    }
    const Appearance& appearance = mesh.appearance;
    extent.isOfFacesOnly = extent.isOfFacesOnly && appearance.kind == Appearance::Kind::SURFACE &&
                           !appearance.hasEdges && !appearance.hasContour;
    former = &mesh;
  }
  if (extent.view) {
    if (!extent.all.isEmpty() && !isTooFar) {
      reportUnsuitableView(extent, camera);
    }
  } else if (extent.all.longestSide() > 0.0) {
    reportInvisible(extent);
  }
  return extent.all;
}

}  // namespace vemo
