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

Box boundsOfInstances(const Box& own, const SharedInstanceTransforms& transforms) {
  Box box;
  forEachInstance(transforms, [&](const InstanceTransform* transform) {
    for (const Vector3& corner : own.corners()) {
      box.add(transformedPoint(transform, corner));
    }
  });
  return box;
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
  Box model;
  const MeshInstance* former = nullptr;
  for (const MeshInstance& mesh : meshes) {
    // The parts of a mesh share its points.
    if (former == nullptr || former->node != mesh.node || former->transforms != mesh.transforms) {
      const Box bounds =
          boundsOfInstances(finiteBounds(*mesh.geometry->GetPoints()->GetData()), mesh.transforms);
      reportIfTooFar(*mesh.node, bounds);
      model.add(bounds.low);
      model.add(bounds.high);
    }
    former = &mesh;
  }
  const double side = model.longestSide();
  if (camera.framesAll() && side > 0.0 && side < SMALLEST) {
    reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                  fmt::format("Nothing of the model is seen: it extends over {:g} only", side));
  }
}

}  // namespace vemo
