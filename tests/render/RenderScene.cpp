#include "render/RenderScene.h"

#include <vtkCellArray.h>
#include <vtkPoints.h>

#include <algorithm>
#include <cstdlib>

namespace vemo {

RenderScene::RenderScene()
    : _node(new lum::SceneNode(lum::ClassNameNodeInitializer(lum::SceneNode::getClassName()))) {
  lum::CameraAttributes& camera = canvas().getCameraAttributes();
  camera.setPosition({0, 0, 5});
  camera.setProjectionMode(lum::CameraAttributes::ProjectionMode::PARALLEL);
  camera.setParallelScale(1.0);
}

lum::SurfaceDrawable& RenderScene::addSurface(vtkPolyData* geometry, const Color& color) {
  auto& surface = add<lum::SurfaceDrawable>(geometry);
  surface.getColorAttributes()->setColor(color, false);
  return surface;
}

lum::DrawableCollection& RenderScene::collectionIn(lum::DrawableCollection& owner) {
  return owner.findOrCreate<lum::DrawableCollection>("collection " + std::to_string(owner.getNodeCount()));
}

namespace {

bool isNear(const Picture::Pixel& a, const Picture::Pixel& b, int tolerance) {
  return std::ranges::equal(a, b, [=](int x, int y) { return std::abs(x - y) <= tolerance; });
}

vtkNew<vtkCellArray> makeCells(const Cells::List& cells) {
  vtkNew<vtkCellArray> array;
  for (const auto& cell : cells) {
    array->InsertNextCell(static_cast<vtkIdType>(cell.size()), cell.data());
  }
  return array;
}

}  // namespace

int countPixels(const Picture& picture, const Picture::Pixel& color, int tolerance) {
  int count = 0;
  for (int row = 0; row < picture.getHeight(); ++row) {
    for (int column = 0; column < picture.getWidth(); ++column) {
      count += isNear(picture.at(column, row), color, tolerance) ? 1 : 0;
    }
  }
  return count;
}

int countDifferences(const Picture& a, const Picture& b, int tolerance) {
  int count = 0;
  for (int row = 0; row < a.getHeight(); ++row) {
    for (int column = 0; column < a.getWidth(); ++column) {
      count += isNear(a.at(column, row), b.at(column, row), tolerance) ? 0 : 1;
    }
  }
  return count;
}

vtkSmartPointer<vtkPolyData> makePolyData(const std::vector<std::array<float, 3>>& points,
                                          const Cells& cells) {
  vtkNew<vtkPoints> places;
  for (const auto& point : points) {
    places->InsertNextPoint(point.data());
  }
  auto polyData = vtkSmartPointer<vtkPolyData>::New();
  polyData->SetPoints(places);
  polyData->SetVerts(makeCells(cells.verts));
  polyData->SetLines(makeCells(cells.lines));
  polyData->SetPolys(makeCells(cells.polys));
  polyData->SetStrips(makeCells(cells.strips));
  return polyData;
}

vtkSmartPointer<vtkPolyData> makeRectangle(float left, float right, float bottom, float top, float z) {
  return makePolyData({{left, bottom, z}, {right, bottom, z}, {right, top, z}, {left, top, z}},
                      {.polys = {{0, 1, 2, 3}}});
}

vtkSmartPointer<vtkFloatArray> makeArray(const std::string& name, const std::vector<float>& values,
                                         int components) {
  auto array = vtkSmartPointer<vtkFloatArray>::New();
  array->SetName(name.c_str());
  array->SetNumberOfComponents(components);
  array->SetNumberOfTuples(static_cast<vtkIdType>(values.size()) / components);
  std::ranges::copy(values, array->GetPointer(0));
  return array;
}

}  // namespace vemo
