#pragma once

#include "vemoview/render/vtk/MeshActor.h"
#include <vemo/resolve/MeshInstance.h>

#include <vtkLookupTable.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

#include <optional>
#include <string>

namespace vemo {

/// What VTK draws as one mesh: a mesh instance, or several merged.
struct RenderMesh {
  struct Scalars {
    ScalarLocation location = ScalarLocation::POINTS;
    std::string arrayName;
    /// Null when the scalars are colours themselves: bytes of red, green, blue,
    /// alpha.
    vtkSmartPointer<vtkLookupTable> table;
  };

  vtkSmartPointer<vtkPolyData> geometry;
  /// Whether others may be drawn with the same geometry: it was not merged.
  bool isShared = false;
  /// Around the cells of each instance that was merged, if there are several; may be null for one.
  SharedBoxes parts;
  Appearance appearance;
  Vector3 color;
  std::optional<Scalars> scalars;
  SharedInstanceTransforms transforms;
  /// Whether it is the edges or the contour of a surface.
  bool isEdges = false;
  /// Whether cells are drawn as the lines around them.
  bool isWireframe = false;
};

}  // namespace vemo
