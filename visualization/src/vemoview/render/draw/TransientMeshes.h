#pragma once

#include "vemoview/render/vtk/WidestLines.h"

#include <vtkProp.h>

#include <array>
#include <vector>

namespace vemo {

struct CanvasResources;
struct MeshInstance;
class MeshActor;
class PropGroup;

/// Draws meshes of a batch with actors that exist only while each is drawn: very many take no more memory
/// than one, and the time to make them at each drawing.
class TransientMeshes : public vtkProp, public LinesProp {
 public:
  static TransientMeshes* New();

  /// To be called once, with meshes, resources and a group that outlive it.
  void setMeshes(std::vector<const MeshInstance*> meshes, CanvasResources& resources, const PropGroup& group);

  /// Of the widest of them.
  double getRoomBehind() override;
  /// As showsFineShapes.
  bool hasFineShapes() const { return _hasFineShapes; }

  double* GetBounds() override;
  vtkTypeBool HasTranslucentPolygonalGeometry() override { return _isTranslucent ? 1 : 0; }
  int RenderOpaqueGeometry(vtkViewport* viewport) override;
  int RenderTranslucentPolygonalGeometry(vtkViewport* viewport) override;
  void ReleaseGraphicsResources(vtkWindow* window) override;

 private:
  /// Calls draw(MeshActor&) for each; returns whether any was drawn.
  template <class Draw>
  int drawEach(Draw&& draw);
  void learn(MeshActor& actor);

  std::vector<const MeshInstance*> _meshes;
  CanvasResources* _resources = nullptr;
  const PropGroup* _group = nullptr;
  std::array<double, 6> _bounds{};
  double _roomBehind = 0.0;
  bool _isOpaque = false;
  bool _isTranslucent = false;
  bool _hasFineShapes = false;
};

}  // namespace vemo
