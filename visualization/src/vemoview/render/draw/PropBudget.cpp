#include "vemoview/render/draw/PropBudget.h"

#include "vemoview/render/draw/BatchGroups.h"
#include "vemoview/render/draw/DrawnAppearance.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/geometry/CellKind.h>
#include <vemo/render/RequireDrawable.h>
#include <vemo/resolve/ClipPlane.h>
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkPolyData.h>

#include <algorithm>
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

/// These are drawn anew for each layer.
bool isDrawnInLayers(const MeshInstance& mesh) {
  return isTranslucent(mesh) || hasTranslucentEdges(mesh);
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
  _meshes += _geometries.insert(mesh.geometry).second ? Limits::MESH : Limits::SHARED_MESH;
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
PropBudget::Cost PropBudget::costOfProps(const MeshInstance& mesh, bool isMerged,
                                         std::size_t clipPlanes) const {
  const Appearance appearance = drawnAppearance(mesh.appearance);
  const std::uint64_t props = countProps(appearance);
  const std::uint64_t actors = Limits::ACTOR * props * countInstances(mesh);
  const std::uint64_t mappers = Limits::MAPPER * props;
  if (appearance.isClipped && clipPlanes > HARDWARE_CLIP_PLANES) {
    // Each instance is cut differently.
    return {actors + mappers * countInstances(mesh), {}};
  }
  if (isMerged) {
    return {actors + mappers, {}};
  }
  Look look{mesh.geometry, appearance, nullptr, {}, ScalarLocation::POINTS};
  if (mesh.scalars) {
    look = {mesh.geometry, appearance, mesh.scalars->table, mesh.scalars->arrayName, mesh.scalars->location};
  }
  return {actors + (_looks.contains(look) ? 0 : mappers), look};
}

PropBudget::Cost PropBudget::costOf(const std::vector<MeshInstance>& batch, std::size_t clipPlanes) const {
  const bool isMerged = batch.size() > 1;
  Cost cost = costOfProps(batch.front(), isMerged, clipPlanes);
  cost.bytes += isMerged ? costOfMerging(batch) : 0;
  return cost;
}

/// Of what drawing may take.
std::uint64_t PropBudget::leftByMeshes() const {
  const std::uint64_t all = Limits::ALL + Limits::ALL_PER_BYTE * _content;
  return all - std::min(all, _meshes);
}

std::uint64_t PropBudget::mostOfKept() const {
  if (_drawn == Drawn::OFTEN) {
    return Limits::WINDOW + Limits::WINDOW_PER_BYTE * _content;
  }
  const std::uint64_t left = leftByMeshes();
  return std::max(left - std::min(left, Limits::OPENGL + _transient), Limits::LEAST_KEPT);
}

bool PropBudget::keep(const std::vector<MeshInstance>& batch, std::size_t clipPlanes) {
  Cost cost = costOf(batch, clipPlanes);
  const bool isKept = _kept + cost.bytes <= mostOfKept();
  if (isKept) {
    _kept += cost.bytes;
    if (cost.look) {
      _looks.insert(std::move(*cost.look));
    }
  } else {
    _transient += Limits::TRANSIENT;
  }
  return isKept;
}

std::vector<bool> PropBudget::add(const Batches& batches, std::size_t clipPlanes) {
  for (const auto& batch : batches) {
    std::ranges::for_each(batch, [this](const MeshInstance& mesh) { addContent(mesh); });
  }
  std::vector<bool> kept(batches.size());
  for (const bool areTranslucent : {true, false}) {
    for (std::size_t i = 0; i < batches.size(); ++i) {
      if (isDrawnInLayers(batches[i].front()) == areTranslucent) {
        kept[i] = keep(batches[i], clipPlanes);
        _remade += areTranslucent && !kept[i] ? 1 : 0;
      }
    }
  }
  if (_remade > Limits::REMADE) {
    throw SceneTooLarge("The scene is too large to be drawn: more than " + std::to_string(Limits::REMADE) +
                        " translucent parts that look different, in a scene with \"" +
                        itemNameOf(*batches.back().front().node) + "\", would be made anew for each layer");
  }
  const std::uint64_t most = std::max(leftByMeshes(), Limits::LEAST_TRANSIENT);
  if (_transient > most) {
    failTooLarge(_transient, most, batches.size(), batches.back().front());
  }
  return kept;
}

void PropBudget::addKept(const std::vector<MeshInstance>& meshes, std::size_t clipPlanes) {
  std::ranges::for_each(meshes, [this](const MeshInstance& mesh) { addContent(mesh); });
  for (const MeshInstance& mesh : meshes) {
    Cost cost = costOfProps(mesh, false, clipPlanes);
    const std::uint64_t props = countProps(drawnAppearance(mesh.appearance)) * countInstances(mesh);
    _kept += cost.bytes + wholeItemNameOf(*mesh.drawable).size() * props;
    if (cost.look) {
      _looks.insert(std::move(*cost.look));
    }
  }
  if (_kept > mostOfKept()) {
    failTooLarge(_kept, mostOfKept(), meshes.size(), meshes.back());
  }
}

void requireDrawable(const ResolvedScene& scene) {
  PropBudget budget(Drawn::ONCE);
  for (const ResolvedCanvas& canvas : scene.canvases) {
    budget.add(groupIntoBatches(canvas.meshes), canvas.clipPlanes.size());
  }
}

}  // namespace vemo
