#include "SceneCollection.h"

#include "BlockData.h"
#include "FieldDataWriter.h"

#include <vtkCompositeDataSet.h>
#include <vtkDataAssembly.h>
#include <vtkInformation.h>
#include <vtkNew.h>
#include <vtkPartitionedDataSet.h>
#include <vtkPartitionedDataSetCollection.h>
#include <vtkPolyData.h>

#include <map>
#include <string>
#include <utility>

namespace vemo {

namespace {

/// The assemblies of a scene as nodes, which are made when a block needs them.
class AssemblyTree {
 public:
  AssemblyTree(vtkDataAssembly& assembly, const std::string& rootName) : _assembly(assembly) {
    assembly.SetRootNodeName("Scene");
    setLabel(vtkDataAssembly::GetRootNode(), rootName);
  }

  void add(const std::vector<std::string>& path, unsigned dataSet) {
    int node = vtkDataAssembly::GetRootNode();
    for (const std::string& name : path) {
      node = childOf(node, name);
    }
    _assembly.AddDataSetIndex(node, dataSet);
  }

 private:
  int childOf(int parent, const std::string& name) {
    const auto [place, isNew] = _nodes.try_emplace({parent, name}, -1);
    if (isNew) {
      place->second = _assembly.AddNode(vtkDataAssembly::MakeValidNodeName(name.c_str()).c_str(), parent);
      setLabel(place->second, name);
    }
    return place->second;
  }

  /// Names of nodes cannot hold all characters.
  void setLabel(int node, const std::string& label) { _assembly.SetAttribute(node, "label", label.c_str()); }

  vtkDataAssembly& _assembly;
  std::map<std::pair<int, std::string>, int> _nodes;
};

void describeCamera(const CanvasCamera& camera, vtkFieldData& data) {
  if (!camera.viewpoint) {
    return;
  }
  FieldDataWriter fields(data);
  fields.add("CameraPosition", camera.viewpoint->position);
  fields.add("CameraFocalPoint", camera.viewpoint->focalPoint);
  fields.add("CameraViewUp", camera.viewpoint->viewUp);
  fields.add("CameraParallelProjection", camera.isParallel ? 1.0 : 0.0);
  if (camera.parallelScale) {
    fields.add("CameraParallelScale", *camera.parallelScale);
  }
}

}  // namespace

void makeCollection(const SceneOutline& outline, const std::vector<std::size_t>& chosen,
                    vtkPartitionedDataSetCollection& collection) {
  const vtkNew<vtkDataAssembly> assembly;
  AssemblyTree tree(*assembly, outline.name);
  collection.SetNumberOfPartitionedDataSets(static_cast<unsigned>(chosen.size()));
  for (unsigned i = 0; i < chosen.size(); ++i) {
    const SceneBlock& block = outline.blocks[chosen[i]];
    const vtkNew<vtkPartitionedDataSet> empty;
    collection.SetPartitionedDataSet(i, empty);
    collection.GetMetaData(i)->Set(vtkCompositeDataSet::NAME(), joinPath(block.path).c_str());
    tree.add(block.path, i);
  }
  collection.SetDataAssembly(assembly);
  describeCamera(outline.camera, *collection.GetFieldData());
}

void putBlock(const SceneBlock& block, BlockColors& colors, bool withColors, unsigned place,
              vtkPartitionedDataSetCollection& collection) {
  unsigned partition = 0;
  for (const auto& instance : makeBlockData(block, colors, withColors)) {
    collection.SetPartition(place, partition++, instance);
  }
}

}  // namespace vemo
