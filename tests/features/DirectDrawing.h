#pragma once

#include "features/FeatureScene.h"
#include "vemoview/render/context/EglRenderWindow.h"
#include <vemo/import/geometry/GeometryItem.h>

#include <vtkActor.h>
#include <vtkActorCollection.h>
#include <vtkCamera.h>
#include <vtkMatrix4x4.h>
#include <vtkMatrixToLinearTransform.h>
#include <vtkNew.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkReverseSense.h>
#include <vtkTransformPolyDataFilter.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vemo {

/// What colours come from in all scenes.
inline const std::string COLOR_ARRAY = "data";

/// The geometry itself moved. What is mirrored turns its faces round: VTK takes
/// the side of a face from the order of its points.
inline vtkSmartPointer<vtkPolyData> moved(vtkPolyData* polyData, vtkMatrix4x4* matrix) {
  vtkNew<vtkMatrixToLinearTransform> transform;
  transform->SetInput(matrix);
  vtkNew<vtkTransformPolyDataFilter> mover;
  mover->SetTransform(transform);
  mover->SetInputData(polyData);
  vtkNew<vtkReverseSense> turner;
  turner->SetInputConnection(mover->GetOutputPort());
  turner->SetReverseCells(matrix->Determinant() < 0.0);
  turner->ReverseNormalsOff();
  turner->Update();
  return turner->GetOutput();
}

inline std::vector<vtkActor*> actorsOf(vtkRenderer& renderer) {
  std::vector<vtkActor*> result;
  vtkCollectionSimpleIterator place = nullptr;
  vtkActorCollection& actors = *renderer.GetActors();
  for (actors.InitTraversal(place); vtkActor* const actor = actors.GetNextActor(place);) {
    result.push_back(actor);
  }
  return result;
}

inline bool showsFineShapes(vtkActor* actor) {
  auto& geometry = dynamic_cast<vtkPolyData&>(*actor->GetMapper()->GetInput());
  vtkProperty& property = *actor->GetProperty();
  return property.GetEdgeVisibility() != 0 || property.GetRepresentation() != VTK_SURFACE ||
         property.GetRenderPointsAsSpheres() || geometry.GetNumberOfLines() > 0;
}

/// Draws the items of a scene with VTK's actors alone, as a host without a
/// scene graph would: by what the items themselves offer for it, and by plain
/// VTK where they offer nothing. Nothing here comes from the renderer but the
/// class of the window.
class DirectDrawing {
 public:
  using Matrices = std::vector<vtkSmartPointer<vtkMatrix4x4>>;

  /// Background and camera are the scene's, the light is VTK's headlight.
  explicit DirectDrawing(Scene& items) : _items(items), _renderer(vtkSmartPointer<vtkRenderer>::New()) {
    _renderer->SetBackground(items.getBackgroundColor().getRGB().data());
    const Camera& view = items.getCamera();
    vtkCamera& camera = *_renderer->GetActiveCamera();
    camera.SetPosition(view.position.data());
    camera.SetFocalPoint(view.focalPoint.data());
    camera.SetViewUp(view.viewUp.data());
    camera.SetParallelProjection(!view.perspective);
    camera.SetParallelScale(view.parallelScale);
  }

  vtkRenderer& renderer() { return *_renderer; }

  /// Where the assembly of the name is shown, one matrix for each time; once,
  /// as it is, without this.
  void place(const std::string& assembly, Matrices matrices) { _places[assembly] = std::move(matrices); }

  /// Adds an actor for each geometry in the scene, one for each of its places.
  void addGeometry() { addAssembly(_items, {vtkSmartPointer<vtkMatrix4x4>::New()}, nullptr); }

  /// An unlit actor of lines, points or faces in one colour.
  vtkActor& addPlain(vtkPolyData* polyData, Vector3 color) {
    vtkNew<vtkPolyDataMapper> mapper;
    mapper->SetInputData(polyData);
    mapper->ScalarVisibilityOff();
    vtkNew<vtkActor> actor;
    actor->SetMapper(mapper);
    actor->GetProperty()->SetColor(color.data());
    actor->GetProperty()->LightingOff();
    _renderer->AddActor(actor);
    return *actor;
  }

  /// The picture of 300 x 300 pixels.
  Picture draw() {
    // Multisampling leaves dots beside edges, gaps within lines, and the rims of
    // balls as they are: they become smooth by drawing them twice as large, as
    // everything is in software.
    const auto window = EglRenderWindow::open(FeatureScene::SIZE, FeatureScene::SIZE);
    const auto actors = actorsOf(*_renderer);
    const int scale = window->drawsInSoftware() || std::ranges::any_of(actors, showsFineShapes) ? 2 : 1;
    for (vtkActor* const actor : actors) {
      vtkProperty& property = *actor->GetProperty();
      // OpenGL draws no line thinner than a pixel.
      property.SetLineWidth(std::max(property.GetLineWidth(), 1.0F) * static_cast<float>(scale));
      property.SetPointSize(property.GetPointSize() * static_cast<float>(scale));
    }
    window->SetSize(FeatureScene::SIZE * scale, FeatureScene::SIZE * scale);
    window->SetMultiSamples(scale == 1 ? 8 : 0);
    window->AddRenderer(_renderer);
    window->Render();
    Picture picture = Picture::of(*window, scale);
    keepPicture(picture, "direct");
    return picture;
  }

 private:
  void addAssembly(AssemblyItem& assembly, const Matrices& places, const Colormap* outerColormap) {
    Matrices own = places;
    if (const auto found = _places.find(assembly.getName()); found != _places.end()) {
      own.clear();
      for (const auto& outer : places) {
        for (const auto& inner : found->second) {
          vtkMatrix4x4::Multiply4x4(outer, inner, own.emplace_back(vtkSmartPointer<vtkMatrix4x4>::New()));
        }
      }
    }
    const bool isScene = &assembly == &_items;
    const Colormap* const colormap =
        outerColormap != nullptr || isScene ? outerColormap : assembly.getActiveColormap();
    for (const auto& child : assembly.getChildren()) {
      if (auto* const inner = dynamic_cast<AssemblyItem*>(child.get())) {
        addAssembly(*inner, own, colormap);
      } else if (auto* const item = dynamic_cast<GeometryItem*>(child.get())) {
        add(*item, own, colormap);
      }
    }
  }

  void add(GeometryItem& item, const Matrices& places, const Colormap* colormap) {
    item.setLineAndPolygonRenderingProperties();
    item.setActorOpacity(1.0);
    for (const auto& matrix : places) {
      vtkNew<vtkPolyDataMapper> mapper;
      mapper->SetInputData(moved(item.getGeometry(), matrix));
      item.setRenderingFlags(mapper);
      item.setScalars(mapper, colormap);
      if (colormap != nullptr) {
        item.setScalarArray(mapper, COLOR_ARRAY);
      }
      item.setClippingPlanes(mapper, _items.getClippingPlanes());
      vtkNew<vtkActor> actor;
      actor->ShallowCopy(item.getActor());
      actor->SetMapper(mapper);
      _renderer->AddActor(actor);
    }
  }

  Scene& _items;
  vtkSmartPointer<vtkRenderer> _renderer;
  std::map<std::string, Matrices> _places;
};

}  // namespace vemo
