#pragma once

#include "vemoview/render/context/EglRenderWindow.h"
#include <vemo/render/Picture.h>
#include <vemo/vtk/vtkVemoSceneImporter.h>

#include <vtkActor.h>
#include <vtkActorCollection.h>
#include <vtkLightCollection.h>
#include <vtkNew.h>
#include <vtkPolyDataMapper.h>
#include <vtkPropCollection.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>
#include <vtkSphereSource.h>

#include <vector>

namespace vemo {

/// A VTK program's window with one renderer.
class ImportWindow {
 public:
  static constexpr int SIZE = 300;

  ImportWindow() {
    window->SetMultiSamples(0);
    window->AddRenderer(renderer);
  }

  void import(vtkVemoSceneImporter& importer) {
    importer.SetRenderWindow(window);
    importer.Update();
  }

  Picture draw() {
    window->Render();
    return Picture::of(*window);
  }

  /// A ball that is the program's own.
  vtkActor& addBall(double radius = 0.1) {
    vtkNew<vtkSphereSource> ball;
    ball->SetRadius(radius);
    vtkNew<vtkPolyDataMapper> mapper;
    mapper->SetInputConnection(ball->GetOutputPort());
    vtkNew<vtkActor> actor;
    actor->SetMapper(mapper);
    renderer->AddActor(actor);
    return *actor;
  }

  /// How much there is: props, lights, renderers, layers, and the layer of the renderer.
  std::vector<int> count() {
    return {renderer->GetViewProps()->GetNumberOfItems(), renderer->GetLights()->GetNumberOfItems(),
            window->GetRenderers()->GetNumberOfItems(), window->GetNumberOfLayers(), renderer->GetLayer()};
  }

  vtkNew<vtkRenderer> renderer;
  vtkSmartPointer<EglRenderWindow> window = EglRenderWindow::open(SIZE, SIZE);
};

/// The first actor of an item; null without any.
inline vtkActor* actorOf(vtkVemoSceneImporter& importer, vtkIdType item) {
  vtkNew<vtkPropCollection> props;
  importer.GetItemProps(item, props);
  return vtkActor::SafeDownCast(props->GetItemAsObject(0));
}

}  // namespace vemo
