#include "SdbFile.h"
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/SceneNode.h>
#include <vemo/scenegraph/attributes/RenderingAttributes.h>
#include <vemo/scenegraph/attributes/ScalarAttributes.h>
#include <vemo/scenegraph/attributes/TextAttributes.h>
#include <vemo/scenegraph/drawables/GeometryDrawables.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>
#include <vemo/scenegraph/inspect/Compare.h>
#include <vemo/scenegraph/transforms/Transform.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkFloatArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkUnsignedCharArray.h>

namespace vemo {

namespace {

using lum::Ptr;

vtkSmartPointer<vtkPolyData> makeStripe(bool use64Bit) {
  auto stripe = vtkSmartPointer<vtkPolyData>::New();
  vtkNew<vtkPoints> points;
  vtkNew<vtkFloatArray> heat;
  heat->SetName("heat");
  for (int i = 0; i < 4; ++i) {
    points->InsertNextPoint(0.1 * i, i % 2, -0.0);
    heat->InsertNextValue(static_cast<float>(i));
  }
  stripe->SetPoints(points);
  stripe->GetPointData()->AddArray(heat);
  vtkNew<vtkCellArray> polys;
  use64Bit ? polys->Use64BitStorage() : polys->Use32BitStorage();
  polys->InsertNextCell({0, 1, 2});
  polys->InsertNextCell({1, 3, 2});
  stripe->SetPolys(polys);
  vtkNew<vtkUnsignedCharArray> kind;
  kind->SetName("kind");
  kind->InsertNextValue(7);
  kind->InsertNextValue(255);
  stripe->GetCellData()->AddArray(kind);
  return stripe;
}

void addSurface(lum::DrawableCollection& drawables) {
  auto& surface = drawables.findOrCreate<lum::SurfaceDrawable>("surface");
  surface.setQualifiedName("plate surface");
  surface.findOrCreate<lum::PolyDataNode>("narrow").setPolyData(makeStripe(false));
  surface.findOrCreate<lum::PolyDataNode>("wide").setPolyData(makeStripe(true));
  surface.getBaseAttributes().setVisibility(false, false);
  surface.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
  surface.getColorAttributes()->setColor({0.25, 0.5, 0.75}, false);
  surface.getColorAttributes()->setColor("wide", {1.0, 0.0, 0.1});
  surface.getAttributes<lum::PointAttributes>().setSize(2.5F);
  auto& scalars = surface.getAttributes<lum::ScalarAttributes>();
  scalars.getDataArray().setDataArrayName("heat");
  scalars.getColorLookupTable().setColorValues({0.0, 0.0, 1.0, 1.0, 1.0, 0.0, 0.0, 0.5});
  scalars.getColorLookupTable().setNumColor(2);
  scalars.getColorLookupTable().setScalarRange({-1.0, 3.0});
  const Ptr<lum::SymmetricTransform> mirror(
      new lum::SymmetricTransform(lum::ClassNameNodeInitializer(lum::SymmetricTransform::getClassName())));
  mirror->setPlane({1.0, 0.0, 0.0, -0.5});
  surface.getBaseAttributes().setTransform(mirror.get());
}

/// A graph with a value of every kind that a field can have.
Ptr<lum::SceneNode> makePlate() {
  const Ptr<lum::SceneNode> scene(
      new lum::SceneNode(lum::ClassNameNodeInitializer(lum::SceneNode::getClassName())));
  scene->setName("plate");
  addSurface(scene->getModelCanvas().getDrawableCollection());
  auto& camera = scene->getModelCanvas().getCameraAttributes();
  camera.setPosition({1.0, 2.0, 3.0});
  camera.setParallelScale(1.5);
  auto& triad =
      scene->getOrientationCanvas().getDrawableCollection().findOrCreate<lum::TriadDrawable>("triad");
  triad.getTextAttributes().setForegroundColor(0x11223344U);
  triad.setCameraAttributes(&camera);
  return scene;
}

// The file is as the first release wrote it, and stays so: scenes that people
// have kept are read by every later version.
TEST(VersionOne, IsReadAsItWasWritten) {
  const Ptr<lum::Node> read = readDatabase(VEMO_SOURCE_FOLDER "/tests/data/version-1.sdb");
  EXPECT_EQ(lum::firstDifference(*makePlate(), *read), "");
}

}  // namespace

}  // namespace vemo
