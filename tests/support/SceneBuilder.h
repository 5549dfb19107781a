#pragma once

#include "support/Meshes.h"
#include "support/Nodes.h"
#include <vemo/scenegraph/attributes/ContourAttributes.h>
#include <vemo/scenegraph/attributes/LineAttributes.h>
#include <vemo/scenegraph/attributes/MaterialAttributes.h>
#include <vemo/scenegraph/attributes/MeshAttributes.h>
#include <vemo/scenegraph/attributes/PointScaleAttributes.h>
#include <vemo/scenegraph/attributes/PointSizeAttributes.h>
#include <vemo/scenegraph/attributes/SurfaceAttributes.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/coloring/DataLocationAttributes.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/GeometryDrawable.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>
#include <vemo/scenegraph/drawables/PointSphereDrawable.h>
#include <vemo/scenegraph/drawables/PolyLineDrawable.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>
#include <vemo/scenegraph/transforms/PeriodicRepeatTransform.h>
#include <vemo/scenegraph/transforms/SimpleTransform.h>
#include <vemo/scenegraph/transforms/SymmetricTransform.h>

#include <string>
#include <vector>

namespace vemo {

/// Builds small scenes of the common drawables, whose headers come with it, seen from the front in parallel
/// projection: x to the right, y upwards, both from -1 to 1 over the canvas.
class SceneBuilder {
 public:
  using Color = Vector3;

  SceneBuilder();

  lum::SceneNode& node() const { return *_node; }
  lum::SceneCanvas& canvas() const { return _node->getModelCanvas(); }
  lum::DrawableCollection& drawables() const { return canvas().getDrawableCollection(); }

  /// A new drawable of some geometry, in a collection of its own.
  template <class Drawable>
  Drawable& add(vtkPolyData* geometry, lum::DrawableCollection& to) {
    auto& drawable = collectionIn(to).findOrCreate<Drawable>();
    const auto mesh = make<lum::PolyDataNode>();
    mesh->setPolyData(geometry);
    drawable.addNode(*mesh);
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

  /// Leaves the view to the renderer, which shows everything.
  void forgetView();

  /// Cuts away what lies behind a plane.
  void clip(const Vector3& normal, const Vector3& origin);

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

/// Shows a drawable so many times, each time a step further.
lum::PeriodicRepeatTransform& repeat(lum::Drawable& drawable, const Vector3& step, int count);

/// Colours a drawable by an array, through the colours red, green, blue and
/// alpha of each place in the table.
lum::ColorLookupTable& colorByArray(lum::GeometryDrawable& drawable, const std::string& array,
                                    lum::DataLocation location, const std::vector<double>& colors = {});

}  // namespace vemo
