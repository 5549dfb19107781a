#include "vemoview/render/draw/PropBudget.h"

#include "vemoview/render/draw/BatchGroups.h"
#include "vemoview/render/draw/DrawnAppearance.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/geometry/CellKind.h>
#include <vemo/render/RequireDrawable.h>
#include <vemo/resolve/ClipPlane.h>
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkPolyData.h>

#include <string>
#include <utility>

namespace vemo {

namespace {

using Limits = PropLimits;

std::uint64_t bytesOf(vtkDataArray& array) {
  return static_cast<std::uint64_t>(array.GetNumberOfValues()) *
         static_cast<std::uint64_t>(array.GetDataTypeSize());
}

/// Those that draw a mesh: its faces, edges and contour.
std::uint64_t countProps(const Appearance& appearance) {
  if (appearance.kind != Appearance::Kind::SURFACE) {
    return 1;
  }
  return (appearance.hasFaces ? 1U : 0U) + (appearance.hasEdges ? 1U : 0U) +
         (appearance.hasContour ? 1U : 0U);
}

std::uint64_t countInstances(const MeshInstance& mesh) {
  return mesh.transforms != nullptr ? mesh.transforms->size() : 1;
}

/// Of the copies of points and cells that a batch has.
std::uint64_t costOfMerging(const std::vector<MeshInstance>& batch) {
  std::uint64_t cost = 0;
  for (const MeshInstance& mesh : batch) {
    cost += Limits::POINT * static_cast<std::uint64_t>(mesh.geometry->GetNumberOfPoints());
    for (const CellKindTraits& kind : CELL_KINDS) {
      cost +=
          Limits::CORNER * static_cast<std::uint64_t>(kind.get(*mesh.geometry)->GetNumberOfConnectivityIds());
    }
  }
  return cost;
}

[[noreturn]] void failTooLarge(std::uint64_t props, std::uint64_t most, std::size_t batches,
                               const MeshInstance& example) {
  const auto inMiB = [](std::uint64_t bytes) { return std::to_string(bytes >> 20U); };
  throw SceneTooLarge("The scene is too large to be drawn: " + std::to_string(batches) +
                      " parts that look different or cover each other, such as \"" +
                      itemNameOf(*example.node) + "\", would take " + inMiB(props) + " MiB, more than " +
                      inMiB(most));
}

}  // namespace

void PropBudget::addContent(const MeshInstance& mesh) {
  const auto add = [this](vtkDataArray* array) {
    if (array != nullptr && _arrays.insert(array).second) {
      _content += bytesOf(*array);
    }
  };
  _content += Limits::ITEM;
  add(mesh.node->getPoints());
  for (const CellKindTraits& kind : CELL_KINDS) {
    if (vtkCellArray* const cells = mesh.node->getCells(kind.kind)) {
      add(cells->GetOffsetsArray());
      add(cells->GetConnectivityArray());
    }
  }
  for (const lum::ArrayTable* const table :
       {&mesh.node->getNodeDataArrays(), &mesh.node->getCellDataArrays()}) {
    for (const auto& array : *table) {
      add(array);
    }
  }
}

/// Of the props that draw a mesh; one that was merged of others shares its mapper with none.
std::uint64_t PropBudget::costOfProps(const MeshInstance& mesh, bool isMerged, std::size_t clipPlanes) {
  const Appearance look = drawnAppearance(mesh.appearance);
  const std::uint64_t props = countProps(look);
  const std::uint64_t actors = Limits::ACTOR * props * countInstances(mesh);
  if (look.isClipped && clipPlanes > HARDWARE_CLIP_PLANES) {
    // Each instance is cut differently.
    return actors + Limits::MAPPER * props * countInstances(mesh);
  }
  Look key{mesh.geometry, look, nullptr, {}, ScalarLocation::POINTS};
  if (mesh.scalars) {
    key = {mesh.geometry, look, mesh.scalars->table.get(), mesh.scalars->arrayName, mesh.scalars->location};
  }
  const bool isNew = isMerged || _looks.insert(std::move(key)).second;
  return actors + (isNew ? Limits::MAPPER * props : 0);
}

std::uint64_t PropBudget::costOf(const std::vector<MeshInstance>& batch, std::size_t clipPlanes) {
  const bool isMerged = batch.size() > 1;
  const std::uint64_t cost = costOfProps(batch.front(), isMerged, clipPlanes);
  return isMerged ? cost + costOfMerging(batch) : cost;
}

void PropBudget::add(const Batches& batches, std::size_t clipPlanes) {
  PropBudget after = *this;
  for (const auto& batch : batches) {
    after._props += after.costOf(batch, clipPlanes);
    for (const MeshInstance& mesh : batch) {
      after.addContent(mesh);
    }
  }
  const std::uint64_t most = Limits::PROPS + Limits::PROPS_PER_BYTE * after._content;
  if (after._props > most) {
    failTooLarge(after._props, most, batches.size(), batches.back().front());
  }
  *this = std::move(after);
}

void requireDrawable(const ResolvedScene& scene) {
  PropBudget budget;
  for (const ResolvedCanvas& canvas : scene.canvases) {
    budget.add(groupIntoBatches(canvas.meshes), canvas.clipPlanes.size());
  }
}

}  // namespace vemo
