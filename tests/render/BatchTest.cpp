#include "render/RenderScene.h"
#include <vemo/scenegraph/attributes/ContourAttributes.h>
#include <vemo/scenegraph/attributes/LineAttributes.h>
#include <vemo/scenegraph/attributes/MaterialAttributes.h>
#include <vemo/scenegraph/attributes/MeshAttributes.h>
#include <vemo/scenegraph/attributes/SurfaceAttributes.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>

#include <functional>
#include <gtest/gtest.h>

namespace vemo {

namespace {

constexpr int SIZE = RenderScene::SIZE;
using Change = std::function<void(lum::SurfaceDrawable&)>;

void plain(lum::SurfaceDrawable&) {}

/// As many surfaces as are drawn in one batch in the left half, and as many in
/// the right half, in turn. A null change leaves a half empty.
Picture draw(const Change& left, const Change& right) {
  constexpr int ROWS = 20;
  RenderScene scene;
  scene.canvas().getLightingAttributes().getLights().findOrCreate<lum::Light>("light").setAngles(20, 0);
  scene.clip({0, 1, 0}, {0, 0, 0});
  const auto add = [&](vtkPolyData* geometry, const Change& change) {
    auto& surface = scene.addSurface(geometry, {0.4, 0.1, 0.1});
    surface.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
    surface.getAttributes<lum::MaterialAttributes>().setSpecular(0.3);
    surface.getAttributes<lum::MaterialAttributes>().setSpecularPower(4);
    change(surface);
  };
  for (int row = 0; row < ROWS; ++row) {
    const float bottom = -0.95F + 0.095F * static_cast<float>(row);
    if (left) {
      add(makeRectangle(-0.9F, -0.1F, bottom, bottom + 0.06F), left);
    }
    if (right) {
      add(makeRectangle(0.1F, 0.9F, bottom, bottom + 0.06F), right);
    }
  }
  return scene.render();
}

int countDifferent(const Picture& a, const Picture& b, int firstColumn) {
  int count = 0;
  for (int row = 0; row < SIZE; ++row) {
    for (int column = firstColumn; column < firstColumn + SIZE / 2; ++column) {
      count += a.at(column, row) != b.at(column, row) ? 1 : 0;
    }
  }
  return count;
}

/// Many small meshes that differ in how they are drawn look as they do without
/// the others.
TEST(Batch, KeepsWhatIsDrawnDifferentlyApart) {
  const struct {
    const char* name;
    Change change;
  } cases[] = {
      {"line width",
       [](lum::SurfaceDrawable& surface) { surface.getAttributes<lum::LineAttributes>().setLineWidth(3); }},
      {"specular",
       [](lum::SurfaceDrawable& surface) {
         surface.getAttributes<lum::MaterialAttributes>().setSpecular(0.9);
       }},
      {"specular power",
       [](lum::SurfaceDrawable& surface) {
         surface.getAttributes<lum::MaterialAttributes>().setSpecularPower(40);
       }},
      {"ambient",
       [](lum::SurfaceDrawable& surface) {
         surface.getAttributes<lum::MaterialAttributes>().setAmbient(0.9);
       }},
      {"diffuse",
       [](lum::SurfaceDrawable& surface) {
         surface.getAttributes<lum::MaterialAttributes>().setDiffuse(0.2);
       }},
      {"clipping",
       [](lum::SurfaceDrawable& surface) { surface.getBaseAttributes().setClipPlanesEnabled(false); }},
      {"a contour instead of edges",
       [](lum::SurfaceDrawable& surface) {
         surface.getAttributes<lum::MeshAttributes>().setMeshVisible(false, false);
         surface.getAttributes<lum::ContourAttributes>().setContourVisible(true);
       }},
      {"edge colour",
       [](lum::SurfaceDrawable& surface) {
         surface.getAttributes<lum::MeshAttributes>().setMeshColor({0, 0, 1});
       }},
      {"faces",
       [](lum::SurfaceDrawable& surface) {
         surface.getAttributes<lum::SurfaceAttributes>().setShaded(false);
       }},
  };
  const Picture left = draw(plain, nullptr);
  const Picture right = draw(nullptr, plain);
  for (const auto& [name, change] : cases) {
    SCOPED_TRACE(name);
    const Picture together = draw(plain, change);
    const Picture alone = draw(nullptr, change);
    EXPECT_EQ(countDifferent(together, left, 0), 0);
    EXPECT_EQ(countDifferent(together, alone, SIZE / 2), 0);
    EXPECT_GT(countDifferent(alone, right, SIZE / 2), 100) << "it is seen";
  }
}

}  // namespace

}  // namespace vemo
