#pragma once

#include "support/Meshes.h"
#include "support/Nodes.h"
#include <vemo/render/ScenePicture.h>
#include <vemo/scenegraph/SceneNode.h>
#include <vemo/scenegraph/attributes/RenderingAttributes.h>
#include <vemo/scenegraph/attributes/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/GeometryDrawables.h>

namespace vemo {

/// Builds small scenes, seen from the front in parallel projection: x to the
/// right, y upwards, both from -1 to 1 over the picture.
class RenderScene {
 public:
  static constexpr int SIZE = 300;
  using Pixel = Picture::Pixel;
  using Color = Vector<3, double>;

  RenderScene();

  lum::SceneNode& node() const { return *_node; }
  lum::SceneCanvas& canvas() const { return _node->getModelCanvas(); }
  lum::DrawableCollection& drawables() const { return canvas().getDrawableCollection(); }

  /// A new drawable of some geometry, in a collection of its own.
  template <class Drawable>
  Drawable& add(vtkPolyData* geometry, lum::DrawableCollection& to) {
    return fill(collectionIn(to).findOrCreate<Drawable>(), geometry);
  }
  template <class Drawable>
  Drawable& add(vtkPolyData* geometry) {
    return add<Drawable>(geometry, drawables());
  }

  /// An opaque, evenly coloured surface.
  lum::SurfaceDrawable& addSurface(vtkPolyData* geometry, const Color& color);

  lum::DrawableCollection& collectionIn(lum::DrawableCollection& owner);

  Picture render() const { return renderPicture(*_node, {SIZE, SIZE}); }

 private:
  template <class Drawable>
  static Drawable& fill(Drawable& drawable, vtkPolyData* geometry) {
    const auto piece = make<lum::PolyDataNode>();
    piece->setPolyData(geometry);
    drawable.addNode(*piece);
    return drawable;
  }

  lum::Ptr<lum::SceneNode> _node = make<lum::SceneNode>();
};

/// How many pixels have a colour, give or take some in each channel.
int countPixels(const Picture& picture, const Picture::Pixel& color, int tolerance = 2);

/// How many pixels of two pictures differ by more than a tolerance in any
/// channel.
int countDifferences(const Picture& a, const Picture& b, int tolerance);

}  // namespace vemo
