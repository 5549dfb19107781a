#pragma once

#include <vemo/resolve/Appearance.h>
#include <vemo/resolve/InstanceTransforms.h>
#include <vemo/scenegraph/coloring/ColorTable.h>

#include <vtkIdList.h>
#include <vtkSmartPointer.h>

#include <memory>
#include <optional>
#include <string>

class vtkPolyData;
namespace lum {
class Drawable;
class PolyDataNode;
}  // namespace lum

namespace vemo {

enum class ScalarLocation { POINTS, CELLS };

/// Colours by an array of the geometry.
struct ScalarColoring {
  ScalarLocation location = ScalarLocation::POINTS;
  std::string arrayName;
  /// Never null. Equal tables of one scene are the same object.
  std::shared_ptr<const ColorTable> table;
  /// Whether a colour of the table is not opaque.
  bool isTranslucent = false;
};

/// A mesh that is seen, once or several times, with everything needed to draw
/// it.
struct MeshInstance {
  /// Its origin; both nodes belong to the scene.
  const lum::Drawable* drawable = nullptr;
  const lum::PolyDataNode* node = nullptr;
  /// Valid cells with finite points, at least one; polygons and strips of a surface,
  /// lines, or vertices, as the appearance's kind says. Arrays that fit. It shares
  /// memory with the scene and with other instances.
  vtkSmartPointer<vtkPolyData> geometry;
  /// The same with triangles in place of the polygons that no fan of triangles around their first
  /// point fills; null if there are none. Faces are drawn with it. Of the data of cells it has only
  /// normals, and the first component of what colours them.
  vtkSmartPointer<vtkPolyData> filling;
  /// Those that its points have in the node; null if they are the same.
  vtkSmartPointer<vtkIdList> pointNumbers;
  Appearance appearance;
  /// Red, green, blue in 0..1: the colour of the whole mesh unless there are
  /// scalars.
  Vector3 color;
  std::optional<ScalarColoring> scalars;
  SharedInstanceTransforms transforms;
};

/// Whether its faces, or its lines or points, are drawn layer by layer: also if only some of the
/// colours of its table are translucent, whether data have them or not.
inline bool isTranslucent(const MeshInstance& mesh) {
  return mesh.appearance.opacity < 1.0 || (mesh.scalars && mesh.scalars->isTranslucent);
}

/// The same of its edges and contour.
inline bool hasTranslucentEdges(const MeshInstance& mesh) {
  return mesh.appearance.edgeOpacity < 1.0;
}

}  // namespace vemo
