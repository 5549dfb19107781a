#include "ManyItems.h"

#include <vemo/scenegraph/attributes/LineAttributes.h>
#include <vemo/scenegraph/attributes/MeshAttributes.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>

#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <string>

namespace vemo {

namespace {

/// A grid of 64 points and 98 triangles with normals, from a corner on.
vtkSmartPointer<vtkPolyData> makePatch(double x, double y) {
  auto patch = vtkSmartPointer<vtkPolyData>::New();
  vtkNew<vtkPoints> points;
  vtkNew<vtkFloatArray> normals;
  normals->SetName("Normals");
  normals->SetNumberOfComponents(3);
  vtkNew<vtkCellArray> polys;
  polys->Use32BitStorage();
  for (vtkIdType i = 0; i < 64; ++i) {
    const vtkIdType row = i / 8;
    points->InsertNextPoint(x + static_cast<double>(i % 8), y + static_cast<double>(row), 0);
    normals->InsertNextTuple3(0, 0, 1);
    if (i % 8 < 7 && i < 56) {
      polys->InsertNextCell({i, i + 1, i + 9});
      polys->InsertNextCell({i, i + 9, i + 8});
    }
  }
  patch->SetPoints(points);
  patch->SetPolys(polys);
  patch->GetPointData()->AddArray(normals);
  return patch;
}

}  // namespace

lum::Ptr<lum::SceneNode> makeManyItems(std::int64_t count) {
  using namespace lum;
  constexpr std::int64_t ROW = 200;
  constexpr double STEP = 8.0;
  const Ptr<SceneNode> scene(new SceneNode(ClassNameNodeInitializer(SceneNode::getClassName())));
  auto& model = scene->getModelCanvas().getDrawableCollection();
  for (std::int64_t i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    const std::int64_t row = i / ROW;
    const double x = STEP * static_cast<double>(i % ROW);
    const double y = STEP * static_cast<double>(row);
    auto& assembly = model.findOrCreate<DrawableCollection>("assembly " + std::to_string(i / 100));
    auto& surface = assembly.findOrCreate<SurfaceDrawable>("geometry " + number);
    surface.getBaseAttributes().setVisibility(true, false);
    surface.getColorAttributes()->setColor({0.1, 0.2, static_cast<double>(i % 256) / 255.0}, false);
    surface.getAttributes<MeshAttributes>().setMeshVisible(true, false);
    surface.getAttributes<LineAttributes>().setLineWidth(2.0);
    auto& geometry = surface.findOrCreate<PolyDataNode>("part " + number);
    geometry.setAttachmentPoint({x, y, 0.0}, 0);
    geometry.setPolyData(makePatch(x, y));
  }
  return scene;
}

}  // namespace vemo
