#include "render/RenderScene.h"
#include "vemoview/render/draw/BatchGroups.h"
#include <vemo/resolve/SceneResolver.h>

#include <vtkCellData.h>
#include <vtkPointData.h>

#include <functional>
#include <gtest/gtest.h>

namespace vemo {

namespace {

using Change = std::function<void(lum::SurfaceDrawable&)>;

void plain(lum::SurfaceDrawable&) {}

auto& material(lum::SurfaceDrawable& surface) {
  return surface.getAttributes<lum::MaterialAttributes>();
}

/// As many surfaces as are drawn in one batch in the left half, and as many in
/// the right half, in turn. A null change leaves a half empty.
Picture draw(const Change& left, const Change& right) {
  constexpr int ROWS = 20;
  RenderScene scene;
  scene.canvas().getLightingAttributes().getLights().findOrCreate<lum::Light>("light").setAngles(20, 0);
  scene.clip({0, 1, 0}, {0, 0, 0});
  const auto add = [&](vtkPolyData* geometry, const Change& change) {
    geometry->GetPointData()->AddArray(makeArray("s", {0, 0, 1, 1}));
    auto& surface = scene.addSurface(geometry, {0.4, 0.1, 0.1});
    edgesOf(surface).setMeshVisible(true, false);
    material(surface).setSpecular(0.3);
    material(surface).setSpecularPower(4);
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
TEST(BatchTest, KeepsWhatIsDrawnDifferentlyApart) {
  const auto colored = [](const std::vector<double>& rgba) -> Change {
    return [rgba](auto& surface) { colorByArray(surface, "s", lum::DataLocation::POINTS, rgba); };
  };
  struct {
    const char* name;
    Change change;
    Change other = plain;
  } const cases[] = {
      {"line width", [](auto& surface) { linesOf(surface).setLineWidth(3); }},
      {"specular", [](auto& surface) { material(surface).setSpecular(0.9); }},
      {"specular power", [](auto& surface) { material(surface).setSpecularPower(40); }},
      {"ambient", [](auto& surface) { material(surface).setAmbient(0.9); }},
      {"diffuse", [](auto& surface) { material(surface).setDiffuse(0.2); }},
      {"clipping", [](auto& surface) { surface.getBaseAttributes().setClipPlanesEnabled(false); }},
      {"a contour, without edges",
       [](auto& surface) {
         edgesOf(surface).setMeshVisible(false, false);
         surface.template getAttributes<lum::ContourAttributes>().setContourVisible(true);
       },
       [](auto& surface) { edgesOf(surface).setMeshVisible(false, false); }},
      {"edge colour",
       [](auto& surface) {
         edgesOf(surface).setMeshColor({0, 0, 1});
       }},
      {"faces",
       [](auto& surface) { surface.template getAttributes<lum::SurfaceAttributes>().setShaded(false); }},
      {"colour tables", colored({1, 0, 0, 1, 0.5, 0, 0, 1}), colored({0, 0, 1, 1, 0, 0, 0.5, 1})},
  };
  for (const auto& [name, change, other] : cases) {
    SCOPED_TRACE(name);
    const Picture together = draw(other, change);
    const Picture alone = draw(nullptr, change);
    EXPECT_EQ(countDifferent(together, draw(other, nullptr), 0), 0);
    EXPECT_EQ(countDifferent(together, alone, SIZE / 2), 0);
    EXPECT_GT(countDifferent(alone, draw(nullptr, other), SIZE / 2), 100) << "it is seen";
  }
}

/// A mesh of each kind, each coloured in its own way, around a position.
void addOneOfEachKind(RenderScene& scene, float x, float y) {
  const auto square = [=](float at) { return makeRectangle(x, x + 0.25F, y + at, y + at + 0.07F, 0.1F * x); };
  scene.addSurface(square(0), {0.5 + x / 4, 0.2, 0.4});
  const auto colored = [&](vtkPolyData* geometry, lum::DataLocation location) -> lum::SurfaceDrawable& {
    auto& surface = scene.add<lum::SurfaceDrawable>(geometry);
    colorByArray(surface, "s", location, {1, 0, 0, 1, 1, 1, 0, 1, 0, 0, 1, 1});
    return surface;
  };
  const auto byPoint = square(0.1F);
  byPoint->GetPointData()->AddArray(makeArray("s", {0, 9, 1, 9, 0.5F + x / 2, 9, 0, 9}, 2));
  byPoint->GetPointData()->AddArray(makeArray("Normals", {0, 1, 1, 0, 0, 1, 1, 0, 0, 0, 0, 1}, 3));
  colored(byPoint, lum::DataLocation::POINTS);
  const auto byCell =
      makePolyData(flat({x, y + 0.2F, x + 0.25F, y + 0.2F, x, y + 0.27F, x + 0.25F, y + 0.27F}),
                   {.lines = {{0, 3}, {1, 2}}, .polys = {{0, 1, 2}}, .strips = {{1, 2, 3}}});
  byCell->GetCellData()->AddArray(makeArray("s", {0.5F, 0, 1, 0.5F}));
  colored(byCell, lum::DataLocation::CELLS).getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  scene.add<lum::PolyLineDrawable>(
      makePolyData(flat({x, y + 0.3F, x + 0.2F, y + 0.35F}), {.lines = {{0, 1}}}), {0, 0.5 + x / 4, 1});
  auto& wire = scene.addSurface(square(0.4F), {1, 1, 1});
  wire.getAttributes<lum::SurfaceAttributes>().setShaded(false);
  wire.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  wire.getAttributes<lum::MeshAttributes>().setMeshColor({1, 1, 0});
}

TEST(BatchTest, DrawsManySmallMeshesLikeFew) {
  RenderScene scene;
  for (const float x : {-0.9F, -0.3F, 0.3F}) {
    addOneOfEachKind(scene, x, -0.2F);
  }
  const Picture few = scene.render();
  EXPECT_LT(countPixels(few, {0, 0, 0}), SIZE * SIZE - 3000);
  // Beside the picture.
  for (int i = 0; i < 20; ++i) {
    addOneOfEachKind(scene, 1.5F, 0.05F * static_cast<float>(i));
  }
  EXPECT_EQ(countDifferences(scene.render(), few, 1), 0);
}

TEST(BatchTest, LeavesContoursSizesAndOrderToEachMesh) {
  const auto draw = [](int meshes) {
    RenderScene scene;
    scene.canvas().getCameraAttributes().setProjectionMode(
        lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
    const auto addTile = [&scene](float x, const Vector3& color) -> auto& {
      auto& tile = scene.addSurface(makeRectangle(x, x + 0.2F, 0, 0.2F), color);
      tile.getAttributes<lum::ContourAttributes>().setContourVisible(true);
      return tile;
    };
    for (int i = 0; i < meshes; ++i) {
      const float x = i < 8 ? -0.8F + 0.2F * static_cast<float>(i) : 30.0F;
      addTile(x, {1, 1, 0});
      const auto points = makePolyData({{x, -0.5F, -static_cast<float>(i)}}, {.verts = {{0}}});
      points->GetPointData()->AddArray(makeArray("s", {1}));
      auto& scale =
          scene.add<lum::PointSphereDrawable>(points, {0, 1, 0}).getAttributes<lum::PointScaleAttributes>();
      scale.setScaleMode(lum::PointScaleMode::LINEAR);
      scale.setScalarName("s");
      scale.setMapToRange({0.1, 0.1});
      scale.setPixelSize(false);
    }
    linesOf(addTile(-0.2F, {0, 0, 1})).setLineWidth(2);
    addTile(-0.2F, {1, 0, 0});
    return scene.render();
  };
  const Picture few = draw(8);
  EXPECT_GT(countPixels(few, {255, 0, 0}), 100);
  EXPECT_EQ(countDifferences(draw(40), few, 1), 0);
}

TEST(BatchTest, MergesMeshesApartFromEachOtherInAnyOrder) {
  RenderScene scene;
  for (int i = 0; i < 2000; ++i) {
    const int place = i * 777 % 2000;
    const auto x = static_cast<float>(place % 50);
    const int row = place / 50;
    const auto y = static_cast<float>(row);
    auto& tile = scene.addSurface(makeRectangle(x, x + 0.5F, y, y + 0.5F), {1, 0, 0});
    linesOf(tile).setLineWidth(1 + i % 20);
    edgesOf(tile).setMeshVisible(true, false);
  }
  EXPECT_EQ(groupIntoBatches(resolveScene(scene.node()).canvases.at(0).meshes).size(), 20U);
}

TEST(BatchTest, DrawsTransformedMeshesTogetherAsAlone) {
  const auto drawMirrored = [](int meshes) {
    RenderScene scene;
    for (int i = 0; i < meshes; ++i) {
      const float x = 0.1F * static_cast<float>(i % 8);
      scene.addSurface(makeRectangle(x, x + 0.05F, x, x + 0.1F), {1, 0.1 * (i % 8), 0},
                       scene.collectionIn(scene.drawables()));
    }
    scene.forgetView();
    // Not along the axes: the box around turned meshes is not the turned box around the meshes.
    setTransform<lum::SymmetricTransform>(scene.drawables()).setPlane({2, 1, 0, 0});
    return scene.render();
  };
  EXPECT_EQ(countDifferences(drawMirrored(8), drawMirrored(40), 1), 0);
}

}  // namespace

}  // namespace vemo
