#include "vemoview/vtk/ItemBuilder.h"

#include "vemoview/render/decorations/Decorations.h"
#include "vemoview/render/draw/MeshProps.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/scenegraph/drawables/Drawable.h>

#include <vtkCompositeDataSet.h>
#include <vtkInformation.h>
#include <vtkInformationStringKey.h>
#include <vtkNew.h>
#include <vtkProp.h>

#include <utility>
#include <vector>

namespace vemo {

namespace {

void setName(vtkProp& prop, const std::string& name) {
  vtkNew<vtkInformation> keys;
  keys->Set(vtkCompositeDataSet::NAME(), name);
  prop.SetPropertyKeys(keys);
}

}  // namespace

/// Adds those of the nodes above it first.
std::size_t ItemBuilder::addPath(const lum::Node& node) {
  std::vector<const lum::Node*> added;
  const lum::Node* above = &node;
  for (; above != &_scene && !_pathsOfNodes.contains(above); above = above->getOwner()) {
    added.push_back(above);
  }
  std::size_t path = above == &_scene ? ItemPaths::ROOT : _pathsOfNodes.at(above);
  for (; !added.empty(); added.pop_back()) {
    path = _paths.add(path, _nodePaths.getStep(*added.back()));
    _pathsOfNodes.emplace(added.back(), path);
  }
  return path;
}

PropGroup& ItemBuilder::addGroup(const lum::Drawable& drawable, bool isVisible, vtkRenderer& renderer) {
  const auto [place, isNew] = _indices.try_emplace(&drawable, _items.size());
  if (isNew) {
    _items.push_back({wholeItemNameOf(drawable), addPath(drawable), isVisible, {}});
  }
  auto& groups = _items[place->second].groups;
  groups.push_back(std::make_unique<PropGroup>(renderer));
  return *groups.back();
}

void ItemBuilder::add(const std::vector<MeshInstance>& meshes, bool areVisible, CanvasResources& resources) {
  for (const MeshInstance& mesh : meshes) {
    PropGroup& group = addGroup(*mesh.drawable, areVisible, *resources.renderer);
    addProps({&mesh}, resources, group);
    group.show(false);
    _meter.advance();
  }
}

void ItemBuilder::add(const std::vector<Decoration>& decorations, bool areVisible, CanvasResources& resources,
                      const CanvasCameras& cameras) {
  for (const Decoration& decoration : decorations) {
    PropGroup& group = addGroup(*decoration.drawable, areVisible, *resources.renderer);
    addProps(decoration, cameras, resources, group);
    group.show(false);
  }
}

ImportedItems ItemBuilder::finish() {
  ImportedItems result(std::move(_paths));
  for (ImportedItem& item : _items) {
    for (const auto& group : item.groups) {
      group->forEachProp([&](vtkProp& prop) { setName(prop, item.name); });
    }
    result.add(std::move(item));
  }
  return result;
}

}  // namespace vemo
