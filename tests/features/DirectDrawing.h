#pragma once

#include <vemo/base/Vector.h>
#include <vemo/render/Picture.h>

#include <vtkSmartPointer.h>

#include <map>
#include <string>
#include <vector>

class vtkActor;
class vtkMatrix4x4;
class vtkPolyData;
class vtkRenderer;

namespace vemo {

class AssemblyItem;
class Colormap;
class GeometryItem;
class Scene;

/// Draws the items of a scene with VTK's actors alone, as a host without a
/// scene graph would: by what the items themselves offer for it, and by plain
/// VTK where they offer nothing. Nothing here comes from the renderer but the
/// class of the window.
class DirectDrawing {
 public:
  using Matrices = std::vector<vtkSmartPointer<vtkMatrix4x4>>;

  /// Background and camera are the scene's, the light is VTK's headlight.
  explicit DirectDrawing(Scene& items);
  ~DirectDrawing();

  vtkRenderer& renderer() { return *_renderer; }

  /// Where the assembly of the name is shown, one matrix for each time; once,
  /// as it is, without this.
  void place(const std::string& assembly, Matrices matrices);

  /// Adds an actor for each geometry in the scene, one for each of its places.
  void addGeometry();

  /// An unlit actor of lines, points or faces in one colour.
  vtkActor& addPlain(vtkPolyData* polyData, Vector3 color);

  /// The picture of 300 x 300 pixels.
  Picture draw();

 private:
  void addAssembly(AssemblyItem& assembly, const Matrices& places, const Colormap* outerColormap);
  void add(GeometryItem& item, const Matrices& places, const Colormap* colormap);

  Scene& _items;
  vtkSmartPointer<vtkRenderer> _renderer;
  std::map<std::string, Matrices> _places;
};

}  // namespace vemo
