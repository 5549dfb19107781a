#pragma once

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
  Appearance appearance;
  Vector3 color;
  std::optional<Scalars> scalars;
  SharedInstanceTransforms transforms;
  /// Whether it is lines that lie on faces, and must not sink into them.
  bool isOnFaces = false;
};

}  // namespace vemo
