#include "vemoview/resolve/mesh/ModelExtent.h"

#include "geometry/Bounds.h"
#include "vemoview/resolve/canvas/ViewVolume.h"
#include "vemoview/resolve/drawables/InstanceBounds.h"
#include "vemoview/resolve/values/Groups.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/resolve/CanvasCamera.h>
#include <vemo/resolve/UsualPicture.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <string>

namespace vemo {

namespace {

/// Bounds of all points are computed once: VTK keeps them for drawing.
Box boundsOfFinite(vtkPolyData& geometry) {
  const Box bounds = boundsOf(geometry);
  return isFinite(bounds.low) && isFinite(bounds.high) ? bounds
                                                       : finiteBounds(*geometry.GetPoints()->GetData());
}

bool isOfFaces(const Appearance& appearance) {
  return appearance.kind == Appearance::Kind::SURFACE && !appearance.hasEdges && !appearance.hasContour;
}

/// How far points and lines extend beyond their coordinates, on both sides together.
double pixelsBeyond(const Appearance& appearance) {
  if (isOfFaces(appearance)) {
    return 0.0;
  }
  if (appearance.kind == Appearance::Kind::POINTS) {
    return appearance.isPointSizeInModelUnits ? MAX_PIXELS : appearance.pointSize;
  }
  return appearance.lineWidth;
}

/// Of parts of one mesh, which share its points.
PictureReach reachOf(std::span<const MeshInstance> parts) {
  double pixels = 0.0;
  for (const MeshInstance& part : parts) {
    pixels = std::max(pixels, pixelsBeyond(part.appearance));
  }
  return {pixels / USUAL_HEIGHT, pixels / USUAL_HEIGHT};
}

bool isSameMesh(const MeshInstance& a, const MeshInstance& b) {
  return a.node == b.node && a.transforms == b.transforms;
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

std::string usualPicture() {
  return fmt::format("a picture of {} x {} pixels", USUAL_WIDTH, USUAL_HEIGHT);
}

}  // namespace

bool ModelExtent::Item::isTiny(const ViewVolume& view) const {
  return isOfFaces && largestSide * USUAL_HEIGHT < view.heightAt(box);
}

ModelExtent::ModelExtent(const std::vector<MeshInstance>& meshes, const ViewVolume* statedView) {
  forEachGroup(std::span(meshes), isSameMesh,
               [&](std::span<const MeshInstance> parts) { add(parts, statedView); });
}

void ModelExtent::add(std::span<const MeshInstance> parts, const ViewVolume* statedView) {
  const MeshInstance& mesh = parts.front();
  const Box bounds = boundsOfFinite(*mesh.geometry);
  const PictureReach reach = reachOf(parts);
  Item item{mesh.node, {}, 0.0, std::ranges::all_of(parts, [](const MeshInstance& part) {
              return vemo::isOfFaces(part.appearance);
            })};
  Box all;
  forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
    const Box instance = instanceBounds(transform, bounds);
    all.add(instance);
    if (statedView == nullptr || !statedView->misses(instance, reach)) {
      item.box.add(instance);
      item.largestSide = std::max(item.largestSide, instance.longestSide());
    }
  });
  if (!item.box.isEmpty()) {
    _items.push_back(item);
  }
  _box.add(all);
  _isTooFar = reportIfTooFar(*mesh.node, all) || _isTooFar;
}

double ModelExtent::largestSide() const {
  return _items.empty() ? 0.0 : std::ranges::max(_items, {}, &Item::largestSide).largestSide;
}

bool ModelExtent::areAllTiny(const ViewVolume& view) const {
  return std::ranges::all_of(_items, [&view](const Item& item) { return item.isTiny(view); });
}

void ModelExtent::reportTiny(const ViewVolume& view) const {
  const auto isTiny = [&view](const Item& item) { return item.isTiny(view); };
  const auto first = std::ranges::find_if(_items, isTiny);
  if (first != _items.end()) {
    reportFinding(
        FindingCode::GEOMETRY_TINY,
        fmt::format("In {}, {} of {} geometries are smaller than a pixel, such as \"{}\"", usualPicture(),
                    std::ranges::count_if(_items, isTiny), _items.size(), itemNameOf(*first->node)));
  }
}

void ModelExtent::reportInvisible(const ViewVolume& view, double side) const {
  if (_items.empty()) {
    return;
  }
  // Something smaller would be viewed from a distance that VTK does not allow.
  if (side < lum::LEAST_DISTANCE) {
    reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                  fmt::format("Nothing of the model is visible: its size is only {:g}", side));
  } else if (areAllTiny(view)) {
    reportFinding(
        FindingCode::GEOMETRY_NOT_DRAWN,
        fmt::format("No geometry is visible in {}: it shows {:g} units, but no geometry is larger than {:g}",
                    usualPicture(), side, largestSide()));
  } else {
    reportTiny(view);
  }
}

/// Of a parallel view.
void ModelExtent::reportIfImprecise(const ViewVolume& view, double parallelScale) const {
  // Below, coordinates are wrong by several pixels.
  constexpr double PRECISION = 1e-5;
  // Beyond, what is behind may cover what is in front.
  constexpr double MOST_SIZES = 1e7;
  const double size = _box.longestSide();
  const double depth = view.depthOf(_box);
  if (parallelScale < PRECISION * largestSide()) {
    reportFinding(
        FindingCode::VIEW_IMPRECISE,
        fmt::format(
            "The view shows {:g} units of a geometry of size {:g}: too little for the precision of OpenGL",
            2.0 * parallelScale, largestSide()));
  } else if (size > 0.0 && depth > MOST_SIZES * size) {
    reportFinding(FindingCode::VIEW_IMPRECISE,
                  fmt::format("The camera is {:g} units away from a model of size {:g}: too far for the "
                              "precision of OpenGL",
                              depth, size));
  }
}

void ModelExtent::reportUnsuitableView(const ViewVolume& view, const CanvasCamera& camera) const {
  if (_box.isEmpty() || _isTooFar) {
    return;
  }
  if (_items.empty()) {
    reportFinding(FindingCode::VIEW_EMPTY, "The view shows no geometry in " + usualPicture());
    return;
  }
  if (areAllTiny(view)) {
    reportFinding(FindingCode::VIEW_EMPTY,
                  "The view shows no geometry: in " + usualPicture() + ", all are smaller than a pixel");
    return;
  }
  reportTiny(view);
  if (camera.isParallel) {
    reportIfImprecise(view, *camera.parallelScale);
  }
}

}  // namespace vemo
