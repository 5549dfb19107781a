#pragma once

#include "geometry/Box.h"
#include <vemo/base/Vector.h>
#include <vemo/resolve/ClipPlane.h>
#include <vemo/resolve/Decoration.h>
#include <vemo/resolve/MeshInstance.h>

#include <vtkType.h>

#include <map>
#include <span>
#include <utility>
#include <vector>

namespace vemo {

struct UsualCanvas;

/// How much of pictures may be drawn, in pictures: shapes that cover each other take the time of all of
/// them. A small file may have very many large faces at one place.
struct AreaLimits {
  static constexpr double PICTURES = 500.0;
  /// For each element that the scene has (DrawingLoad::content): some 200 pixels for a face, line or point.
  static constexpr double PICTURES_PER_ELEMENT = 0.00005;
  /// Translucent shapes are drawn again for each of their layers, up to so many times, of which some
  /// count: dozens of large sheets are worth their time.
  static constexpr double MOST_LAYERS = 64.0;
  static constexpr double COUNTED_LAYERS = 0.25;
};

/// Parts of a picture that are covered, added up.
struct Cover {
  double opaque = 0.0;
  double translucent = 0.0;

  void add(double area, bool isTranslucent) { (isTranslucent ? translucent : opaque) += area; }
  /// What is drawn for them, in pictures.
  double drawn() const;
};

/// Estimates how much of pictures meshes and images cover, whatever covers them.
class DrawnArea {
 public:
  /// The meshes and decorations must outlive it.
  DrawnArea(std::span<const MeshInstance> meshes, std::span<const Decoration> decorations);

  /// Whether they are so few that no view shows more than the limit.
  bool isSmall() const;

  /// Around all meshes and images.
  Box bounds();

  /// Throws SceneTooLarge if they cover more in a view than the limit.
  /// @param size of the canvas, as a part of the window's
  void requireDrawn(const UsualCanvas& canvas, const Vector<2, double>& size,
                    std::span<const ClipPlane> clipPlanes);

 private:
  /// Faces, lines or points of a mesh.
  struct Part {
    Appearance::Kind kind;
    vtkPolyData* geometry;
    bool isTranslucent;
    /// The most that each covers.
    double greatest;
  };
  /// What all faces of a geometry come to.
  struct Extent {
    Box bounds;
    double area = 0.0;
  };
  class View;

  static std::vector<Part> partsOf(const MeshInstance& mesh);
  const Extent& extentOf(vtkPolyData& geometry);
  double mostOf(const Part& part, const InstanceTransform* transform, const View& view);
  Cover mostOf(const View& view);

  std::span<const MeshInstance> _meshes;
  std::span<const Decoration> _decorations;
  double _limit = AreaLimits::PICTURES;
  std::map<vtkPolyData*, Extent> _extents;
};

}  // namespace vemo
