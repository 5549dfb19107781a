#pragma once

#include "support/Meshes.h"
#include "support/Nodes.h"
#include <vemo/render/ScenePicture.h>
#include <vemo/scenegraph/SceneNode.h>
#include <vemo/scenegraph/attributes/RenderingAttributes.h>
#include <vemo/scenegraph/attributes/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/GeometryDrawables.h>

#include <functional>

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
    auto& drawable = collectionIn(to).findOrCreate<Drawable>();
    const auto piece = make<lum::PolyDataNode>();
    piece->setPolyData(geometry);
    drawable.addNode(*piece);
    return drawable;
  }
  template <class Drawable>
  Drawable& add(vtkPolyData* geometry) {
    return add<Drawable>(geometry, drawables());
  }

  /// The same, opaque and in one colour.
  template <class Drawable>
  Drawable& add(vtkPolyData* geometry, const Color& color) {
    auto& drawable = add<Drawable>(geometry);
    drawable.getColorAttributes()->setColor(color, false);
    return drawable;
  }
  lum::SurfaceDrawable& addSurface(vtkPolyData* geometry, const Color& color);
  lum::SurfaceDrawable& addSurface(vtkPolyData* geometry, const Color& color, lum::DrawableCollection& to);

  lum::DrawableCollection& collectionIn(lum::DrawableCollection& owner);

  /// Cuts away what lies behind a plane.
  void clip(const Vector<3, double>& normal, const Vector<3, double>& origin);

  Picture render() const { return renderPicture(*_node, {SIZE, SIZE}); }

 private:
  lum::Ptr<lum::SceneNode> _node = make<lum::SceneNode>();
};

/// A new transform of a drawable.
template <class Transform>
Transform& setTransform(lum::Drawable& drawable) {
  const auto transform = make<Transform>();
  drawable.getBaseAttributes().setTransform(transform.get());
  return *transform;
}

/// Colours a drawable by an array, through the colours red, green, blue and
/// alpha of each place in the table.
lum::ColorLookupTable& colorByArray(lum::GeometryDrawable& drawable, const std::string& array,
                                    lum::DataLocation location, const std::vector<double>& colors = {});

/// The pixel at model coordinates of a RenderScene.
Picture::Pixel at(const Picture& picture, double x, double y);

/// How many pixels have a colour, give or take some in each channel.
int countPixels(const Picture& picture, const Picture::Pixel& color, int tolerance = 2);

/// Of how many pixels something holds.
int countWhere(const Picture& picture, const std::function<bool(const Picture::Pixel&)>& holds);

/// How many pixels of two pictures differ by more than a tolerance in any
/// channel.
int countDifferences(const Picture& a, const Picture& b, int tolerance = 0);

/// The columns, and the rows counted from below, of the pixels that something
/// holds of; all 0 if of none.
struct PixelBox {
  int left = 0, right = 0, bottom = 0, top = 0;

  int width() const { return right - left; }
  int height() const { return top - bottom; }
};
PixelBox boxWhere(const Picture& picture, const std::function<bool(const Picture::Pixel&)>& holds);

}  // namespace vemo
