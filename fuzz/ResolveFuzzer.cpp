// What is seen of the scenes in databases.

#include "Fuzzing.h"
#include "TwoParts.h"
#include "geometry/Cells.h"
#include <vemo/geometry/CellKind.h>
#include <vemo/resolve/SceneResolver.h>
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <vtkCellData.h>
#include <vtkPointData.h>

#include <algorithm>
#include <cmath>
#include <span>

namespace vemo {

namespace {

bool isFinite(const auto& values) {
  return std::ranges::all_of(values, [](double value) { return std::isfinite(value); });
}

void requireFit(vtkDataSetAttributes& data, vtkIdType tuples) {
  for (int i = 0; i < data.GetNumberOfArrays(); ++i) {
    require(data.GetAbstractArray(i)->GetNumberOfTuples() == tuples, "An array does not fit");
  }
}

void requireValid(const CellKindTraits& kind, vtkPolyData& mesh) {
  forEachCell(*kind.get(mesh), [&](auto cell) {
    require(static_cast<vtkIdType>(cell.size()) >= kind.leastPoints, "A cell has too few points");
    for (const vtkIdType index : cell) {
      require(index >= 0 && index < mesh.GetNumberOfPoints(), "A cell has points that are not there");
      require(isFinite(std::span(mesh.GetPoint(index), 3)), "A point is nowhere");
    }
  });
}

void check(vtkPolyData& geometry) {
  require(geometry.GetNumberOfCells() > 0, "A mesh has no cells");
  for (const CellKindTraits& kind : CELL_KINDS) {
    requireValid(kind, geometry);
  }
  requireFit(*geometry.GetPointData(), geometry.GetNumberOfPoints());
  requireFit(*geometry.GetCellData(), geometry.GetNumberOfCells());
}

void check(const MeshInstance& mesh) {
  check(*mesh.geometry);
  if (mesh.filling != nullptr) {
    check(*mesh.filling);
  }
  forEachInstance(mesh.transforms, [](const InstanceTransform* transform) {
    require(transform == nullptr || isFinite(*transform), "An instance is nowhere");
  });
  const Appearance& look = mesh.appearance;
  for (const double share : {mesh.color[0], mesh.color[1], mesh.color[2], look.opacity, look.edgeOpacity,
                             look.ambient, look.diffuse, look.specular, look.specularPower / 128}) {
    require(share >= 0 && share <= 1, "An appearance is out of range");
  }
  require(look.lineWidth > 0 && look.pointSize > 0, "Lines or points without a size");
}

void check(const ResolvedCanvas& canvas) {
  require(canvas.lowerLeft[0] < canvas.upperRight[0] && canvas.lowerLeft[1] < canvas.upperRight[1],
          "A canvas is empty");
  const auto& view = canvas.camera.viewpoint;
  require(!view || (isFinite(view->position) && isFinite(view->focalPoint) && isFinite(view->viewUp)),
          "A camera is nowhere");
  for (const MeshInstance& mesh : canvas.meshes) {
    check(mesh);
  }
}

}  // namespace

TwoParts makeSample() {
  return makeSampleDatabase();
}

void readInput(const std::string& input) {
  lum::SDBReader reader = openDatabase(takeApart(input));
  for (std::size_t i = 0; i < reader.getRecords().size(); ++i) {
    const lum::Ptr<lum::SceneNode> scene(reader.readNode(i));
    if (!scene) {
      continue;
    }
    try {
      std::ranges::for_each(resolveScene(*scene).canvases, [](const auto& canvas) { check(canvas); });
    } catch (const SceneTooLarge& error) {
      require(error.what()[0] != '\0', "An error without a text");
    }
  }
}

}  // namespace vemo
