#include "vemoview/resolve/mesh/ModelExtent.h"

#include "geometry/Bounds.h"
#include "vemoview/resolve/canvas/ViewVolume.h"
#include "vemoview/resolve/drawables/InstanceBounds.h"
#include "vemoview/resolve/mesh/CellSearch.h"
#include "vemoview/resolve/mesh/PointSizes.h"
#include "vemoview/resolve/values/Groups.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/resolve/CanvasCamera.h>
#include <vemo/resolve/UsualPicture.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkPolyData.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <string>

namespace vemo {

namespace {

/// Points that no cell uses are not seen.
Box boundsOfParts(std::span<const MeshInstance> parts) {
  Box box;
  for (const MeshInstance& part : parts) {
    box.add(boundsOfCells(*part.geometry));
  }
  return box;
}

/// Whether its settings show anything of a mesh.
bool showsSomething(const MeshInstance& mesh) {
  const Appearance& appearance = mesh.appearance;
  return appearance.kind != Appearance::Kind::SURFACE || appearance.hasFaces || appearance.hasEdges ||
         appearance.hasContour;
}

bool isOfPoints(const MeshInstance& mesh) {
  return mesh.appearance.kind == Appearance::Kind::POINTS;
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

constexpr const char* ALL_CUT_AWAY = "The clipping planes cut away everything that would be in the picture";
constexpr const char* THIN = "thinner than a pixel, seen edge-on or without a contour to draw";
constexpr const char* OUTSIDE_OR_THIN =
    "outside of it, too close to the camera, thinner than a pixel, seen edge-on or without a contour to draw";

bool hasTooLargePoints(const MeshInstance& mesh, const UsualCanvas& canvas,
                       std::span<const ClipPlane> clipPlanes) {
  if (!isOfPoints(mesh) || !mesh.appearance.isPointSizeInModelUnits) {
    return false;
  }
  UsualCanvas part = canvas;
  part.farthest = depthOfTooLarge(mesh.appearance.pointSize * canvas.heightScale, canvas.view);
  return part.farthest > part.nearest && CellSearch(part, clipPlanes).findsForCertain(mesh);
}

std::string usualPicture() {
  return fmt::format("a picture of {} x {} pixels", USUAL_WIDTH, USUAL_HEIGHT);
}

}  // namespace

bool ModelExtent::Item::isTiny(const ViewVolume& view) const {
  return !hasPoints && largestSide * USUAL_HEIGHT < view.heightAt(view.depthOf(box));
}

ModelExtent::ModelExtent(const std::vector<MeshInstance>& meshes, const ViewVolume* statedView) {
  forEachGroup(std::span(meshes), isSameMesh,
               [&](std::span<const MeshInstance> parts) { add(parts, statedView); });
}

void ModelExtent::add(std::span<const MeshInstance> parts, const ViewVolume* statedView) {
  if (std::ranges::none_of(parts, showsSomething)) {
    return;
  }
  const MeshInstance& mesh = parts.front();
  const Box bounds = boundsOfParts(parts);
  Item item{parts,
            {},
            0.0,
            std::ranges::all_of(parts, [](const MeshInstance& part) { return isOfFaces(part.appearance); }),
            std::ranges::any_of(parts, isOfPoints)};
  Box all;
  forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
    const Box instance = instanceBounds(transform, bounds);
    all.add(instance);
    if (statedView == nullptr || !statedView->misses(instance)) {
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
  return std::ranges::all_of(_items,
                             [&view](const Item& item) { return item.isOfFaces && item.isTiny(view); });
}

void ModelExtent::reportShapeless(const ViewVolume& view) const {
  for (const Item& item : _items) {
    if (!item.isTiny(view) && std::ranges::none_of(item.parts, hasShapes)) {
      const NodeScope scope(*item.parts.front().node);
      reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                    "No view shows it: its faces have no area, or there is no contour to draw");
    }
  }
}

void ModelExtent::reportUnusualSizes(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes) const {
  reportShapeless(canvas.view);
  for (const Item& item : _items) {
    if (std::ranges::any_of(item.parts, [&](const MeshInstance& part) {
          return hasTooLargePoints(part, canvas, clipPlanes);
        })) {
      reportTooLarge(*item.parts.front().node);
    }
  }
  const auto isTiny = [&canvas](const Item& item) { return item.isTiny(canvas.view); };
  const auto first = std::ranges::find_if(_items, isTiny);
  if (first == _items.end()) {
    return;
  }
  const auto count = std::ranges::count_if(_items, isTiny);
  const std::string name = '"' + itemNameOf(*first->parts.front().node) + '"';
  reportFinding(FindingCode::GEOMETRY_TINY,
                count == 1 ? fmt::format("In {}, {} is smaller than a pixel", usualPicture(), name)
                           : fmt::format("In {}, {} of {} geometries are smaller than a pixel, such as {}",
                                         usualPicture(), count, _items.size(), name));
}

bool ModelExtent::shows(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes) const {
  CellSearch search(canvas, clipPlanes);
  return std::ranges::any_of(_items, [&search](const Item& item) {
    return std::ranges::any_of(item.parts,
                               [&search](const MeshInstance& part) { return search.finds(part); });
  });
}

void ModelExtent::reportCollapsed() const {
  if (!_items.empty() && std::ranges::none_of(_items, &Item::hasPoints)) {
    reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                  "Nothing of the model is visible: all of it is at one point");
  }
}

void ModelExtent::reportInvisible(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes,
                                  double side) const {
  if (_items.empty() || _isTooFar) {
    return;
  }
  // Something smaller would be viewed from a distance that VTK does not allow.
  if (side < lum::LEAST_DISTANCE) {
    reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                  fmt::format("Nothing of the model is visible: its size is only {:g}", side));
  } else if (areAllTiny(canvas.view)) {
    reportFinding(
        FindingCode::GEOMETRY_NOT_DRAWN,
        fmt::format("No geometry is visible in {}: it shows {:g} units, but no geometry is larger than {:g}",
                    usualPicture(), side, largestSide()));
  } else if (shows(canvas, clipPlanes)) {
    reportUnusualSizes(canvas, clipPlanes);
  } else if (!clipPlanes.empty() && shows(canvas, {})) {
    reportFinding(FindingCode::VIEW_EMPTY, ALL_CUT_AWAY);
  } else {
    reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                  fmt::format("No geometry is visible in {}: all are {}", usualPicture(), THIN));
  }
}

bool ModelExtent::reportIfImprecise(const ViewVolume& view, const CanvasCamera& camera) const {
  // Below, coordinates are wrong by several pixels.
  constexpr double PRECISION = 1e-5;
  // Beyond, what is behind may cover what is in front.
  constexpr double MOST_SIZES = 1e7;
  const double size = _box.longestSide();
  const double depth = view.depthOf(_box);
  const double height = view.heightAt(view.greatestDepthOf(_box));
  if (height < 2.0 * PRECISION * largestSide()) {
    reportFinding(
        FindingCode::VIEW_IMPRECISE,
        fmt::format(
            "The view shows {:g} units of a geometry of size {:g}: too little for the precision of OpenGL",
            height, largestSide()));
    return true;
  }
  if (camera.isParallel && size > 0.0 && depth > MOST_SIZES * size) {
    reportFinding(FindingCode::VIEW_IMPRECISE,
                  fmt::format("The camera is {:g} units away from a model of size {:g}: too far for the "
                              "precision of OpenGL",
                              depth, size));
    return true;
  }
  // Of the range of depths, which begins at the camera.
  constexpr double DEPTH_STEP = 1.2e-7;
  const double farthest = view.greatestDepthOf(_box);
  const double step = DEPTH_STEP * (farthest - std::max(depth, 0.0));
  if (camera.isParallel && step * USUAL_HEIGHT > height) {
    reportFinding(
        FindingCode::VIEW_IMPRECISE,
        fmt::format("The model extends to a distance of {:g} units, {:g} times the height of what the view "
                    "shows: what is behind something else by less than {:g} units may cover it",
                    farthest, farthest / height, step));
    return true;
  }
  return false;
}

/// OpenGL cannot draw what is near and what is very far away at once.
void ModelExtent::reportTooNear(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes) const {
  if (canvas.nearest == 0.0) {
    return;
  }
  // Places in the picture can be computed from here on.
  constexpr double LEAST_PART = 1e-6;
  UsualCanvas part = canvas;
  part.farthest = canvas.nearest;
  part.nearest = LEAST_PART * canvas.nearest;
  CellSearch search(part, clipPlanes);
  const auto isTooNear = [&](const Item& item) {
    return canvas.view.depthOf(item.box) < canvas.nearest &&
           std::ranges::any_of(item.parts,
                               [&](const MeshInstance& mesh) { return search.findsForCertain(mesh); });
  };
  const auto first = std::ranges::find_if(_items, isTooNear);
  if (first != _items.end()) {
    reportFinding(
        FindingCode::VIEW_IMPRECISE,
        fmt::format(
            "What is closer to the camera than {:g} is not drawn, such as parts of \"{}\", because the "
            "model extends to a distance of {:g}",
            canvas.nearest, itemNameOf(*first->parts.front().node), canvas.view.greatestDepthOf(_box)));
  }
}

void ModelExtent::reportUnsuitableView(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes,
                                       const CanvasCamera& camera) const {
  if (_box.isEmpty() || _isTooFar) {
    return;
  }
  if (_items.empty()) {
    reportFinding(FindingCode::VIEW_EMPTY, "The view shows no geometry in " + usualPicture());
  } else if (areAllTiny(canvas.view)) {
    reportFinding(FindingCode::VIEW_EMPTY,
                  "The view shows no geometry: in " + usualPicture() + ", all are smaller than a pixel");
  } else if (reportIfImprecise(canvas.view, camera) || shows(canvas, clipPlanes)) {
    reportTooNear(canvas, clipPlanes);
    reportUnusualSizes(canvas, clipPlanes);
  } else if (!clipPlanes.empty() && shows(canvas, {})) {
    reportFinding(FindingCode::VIEW_EMPTY, ALL_CUT_AWAY);
  } else {
    reportFinding(FindingCode::VIEW_EMPTY, fmt::format("The view shows no geometry in {}: all are {}",
                                                       usualPicture(), OUTSIDE_OR_THIN));
  }
}

}  // namespace vemo
