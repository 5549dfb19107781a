#pragma once

#include "geometry/Box.h"
#include <vemo/base/Vector.h>
#include <vemo/resolve/ClipPlane.h>
#include <vemo/resolve/Decoration.h>
#include <vemo/resolve/MeshInstance.h>

#include <vtkType.h>

#include <cstdint>
#include <map>
#include <span>
#include <string>
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
  /// Translucent shapes are all drawn again for each layer that they have anywhere, up to so many times.
  static constexpr std::uint8_t MOST_LAYERS = 64;
  /// That takes as long for each as if it covered so much more, even if it is tiny.
  static constexpr double PICTURES_PER_LAYERED_SHAPE = 0.00002;
};

/// What covers a picture, added up.
struct Cover {
  double opaque = 0.0;
  double translucent = 0.0;
  /// The translucent faces, lines and points, and the most that there are at one place.
  double layeredShapes = 0.0;
  double layers = 0.0;

  void add(double area, bool isTranslucent) { (isTranslucent ? translucent : opaque) += area; }
  /// What is drawn for them, in pictures.
  double drawn() const;
  Cover& operator+=(const Cover& other);
  Cover& operator-=(const Cover& other);
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
  static Cover mostOf(const Part& part, double times);
  void requireDrawn(const Cover& cover, const std::string& example) const;
  const Extent& extentOf(vtkPolyData& geometry);
  Cover mostOf(const Part& part, const InstanceTransform* transform, const View& view);
  Cover mostOf(const View& view);

  std::span<const MeshInstance> _meshes;
  std::span<const Decoration> _decorations;
  double _limit = AreaLimits::PICTURES;
  std::map<vtkPolyData*, Extent> _extents;
};

}  // namespace vemo
