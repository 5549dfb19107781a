#include "render/RenderScene.h"
#include "support/TemporaryFolder.h"
#include "window/OpenWindow.h"
#include <vemo/render/RenderErrors.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <QTreeWidget>
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

namespace vemo {

namespace {

const RenderScene::Color PINK{1, 0, 1};
const RenderScene::Color BLUE{0, 0, 1};

void name(lum::Node& surface, const std::string& text) {
  surface.getOwner()->setName(text);
}

int difference(QRgb a, QRgb b) {
  return std::max(
      {std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

/// But for the few pixels where two axes of a triad touch.
testing::AssertionResult isSame(const QImage& seen, const QImage& expected, int tolerance = 0) {
  constexpr int FEW = 20;
  int count = 0;
  for (int row = 0; row < expected.height(); ++row) {
    for (int column = 0; column < expected.width(); ++column) {
      count += difference(seen.pixel(column, row), expected.pixel(column, row)) > tolerance ? 1 : 0;
    }
  }
  const bool isAlike = seen.size() == expected.size() && count <= FEW;
  return (isAlike ? testing::AssertionSuccess() : testing::AssertionFailure()) << count << " pixels differ";
}

/// The lower left quarter of the view, where a triad may stand.
QImage cornerOf(const QImage& picture) {
  return picture.copy(0, picture.height() * 3 / 4, picture.height() / 4, picture.height() / 4);
}

/// A pink square to the left, a blue one to the right, and a triad that turns
/// with them.
class SceneWindowTest : public testing::Test {
 protected:
  SceneWindowTest()
      : pink(scene.addSurface(makeRectangle(-0.8F, -0.2F, -0.3F, 0.3F), PINK)),
        blue(scene.addSurface(makeRectangle(0.2F, 0.8F, -0.3F, 0.3F), BLUE)) {
    name(pink, "pink square");
    name(blue, "blue square");
    scene.canvas().getBaseCanvasAttributes().setInteractive(true);
    lum::SceneCanvas& corner = scene.node().getOrientationCanvas();
    corner.getBaseCanvasAttributes().setSize({0.2, 0.2});
    auto& view = corner.getCameraAttributes();
    view.setPosition({0, 0, -1});
    view.setProjectionMode(lum::CameraAttributes::ProjectionMode::PARALLEL);
    view.setParallelScale(2.2);
    auto& triad = corner.getDrawableCollection().findOrCreate<lum::TriadDrawable>("triad");
    triad.getTriadAttributes().setUseConstantPixelSize(false);
    triad.setCameraAttributes(&scene.canvas().getCameraAttributes());
  }

  bool isVisible(lum::Drawable& surface) {
    return dynamic_cast<lum::Drawable&>(*surface.getOwner()).getBaseAttributes().getVisibility();
  }

  RenderScene scene;
  lum::SurfaceDrawable& pink;
  lum::SurfaceDrawable& blue;
};

TEST_F(SceneWindowTest, TurnsPansAndZoomsAndResets) {
  OpenWindow open(scene.node());
  const QImage first = open.look();
  const double side = 0.3 * open.view().height();
  EXPECT_NEAR(OpenWindow::countPink(first), side * side, 0.05 * side * side);

  open.drag(open.placeOf(0, 0), open.placeOf(0.4, 0.2));
  const QImage turned = open.look();
  EXPECT_FALSE(isSame(turned, first));
  EXPECT_FALSE(isSame(cornerOf(turned), cornerOf(first))) << "the triad turns along";
  open.press(Qt::Key_R);
  EXPECT_TRUE(isSame(open.look(), first));

  open.drag(open.placeOf(0, 0), open.placeOf(0.4, 0), Qt::MiddleButton);
  EXPECT_EQ(open.look().pixel(open.placeOf(-0.1, 0)), first.pixel(open.placeOf(-0.5, 0)));
  EXPECT_TRUE(isSame(cornerOf(open.look()), cornerOf(first)));
  open.press(Qt::Key_R);

  open.turnWheel(1);
  EXPECT_GT(open.countPink(), 1.1 * OpenWindow::countPink(first));
  open.press(Qt::Key_R);
  EXPECT_TRUE(isSame(open.look(), first));
}

TEST_F(SceneWindowTest, KeepsTheViewWhenKeysOfOthersArePressed) {
  OpenWindow open(scene.node());
  const QImage first = open.look();
  for (const Qt::Key key : {Qt::Key_W, Qt::Key_P, Qt::Key_3, Qt::Key_E, Qt::Key_Q, Qt::Key_J, Qt::Key_T}) {
    open.press(key);
  }
  EXPECT_TRUE(isSame(open.look(), first));
  EXPECT_TRUE(open.window().isVisible());
}

TEST_F(SceneWindowTest, HidesAndShowsWithTheCheckBox) {
  OpenWindow open(scene.node());
  const QImage first = open.look();
  open.toggle("pink square");
  open.press(Qt::Key_Escape);
  EXPECT_EQ(open.countPink(), 0);
  EXPECT_FALSE(isVisible(pink));
  EXPECT_TRUE(isVisible(blue));
  open.toggle("pink square");
  open.press(Qt::Key_Escape);
  EXPECT_TRUE(isSame(open.look(), first));
}

TEST_F(SceneWindowTest, HidesAndShowsByName) {
  OpenWindow open(scene.node());
  const QImage first = open.look();
  open.type("PINK");
  EXPECT_THROW(open.row("blue square"), std::runtime_error) << "is not listed";
  open.pressButton("hide");
  EXPECT_EQ(open.countPink(), 0);
  open.type("");
  EXPECT_FALSE(open.isChecked("pink square"));
  EXPECT_TRUE(open.isChecked("blue square"));
  open.type("square");
  open.pressButton("show");
  EXPECT_TRUE(isSame(open.look(), first));
  open.type("no such name");
  open.type("");
  EXPECT_TRUE(open.list().isExpanded(open.row("pink square").parent())) << "rows can be seen again";
}

TEST_F(SceneWindowTest, ShowsOnlyWhatIsSelectedAndAllAgain) {
  OpenWindow open(scene.node());
  const QImage first = open.look();
  open.selectRow("blue square");
  open.press(Qt::Key_O);
  open.press(Qt::Key_Escape);
  EXPECT_EQ(open.countPink(), 0);
  EXPECT_TRUE(open.isChecked("blue square"));
  open.press(Qt::Key_A);
  open.selectRow("pink square");
  open.press(Qt::Key_H);
  EXPECT_EQ(open.countPink(), 0);
  open.press(Qt::Key_A);
  open.press(Qt::Key_Escape);
  EXPECT_TRUE(isSame(open.look(), first));
}

TEST_F(SceneWindowTest, ShowsWhatTheFileHidesAndNothingBesides) {
  auto& group = scene.collectionIn(scene.drawables());
  group.setName("hidden group");
  group.getBaseAttributes().setVisibility(false, false);
  const auto addTo = [&](const std::string& text, float bottom) {
    auto& surface = scene.add<lum::SurfaceDrawable>(makeRectangle(-0.1F, 0.1F, bottom, bottom + 0.2F), group);
    surface.getColorAttributes()->setColor(PINK, false);
    name(surface, text);
  };
  addTo("wanted", 0.5F);
  addTo("unwanted", -0.7F);
  OpenWindow open(scene.node());
  const int before = open.countPink();
  EXPECT_FALSE(open.isChecked("hidden group"));
  EXPECT_TRUE(open.isChecked("wanted"));

  open.selectRow("wanted");
  open.pressButton("show");
  open.press(Qt::Key_Escape);
  const QImage shown = open.look();
  EXPECT_EQ(QColor(shown.pixel(open.placeOf(0, 0.6))).red(), 255);
  EXPECT_GT(OpenWindow::countPink(shown), before);
  EXPECT_NE(QColor(shown.pixel(open.placeOf(0, -0.6))).red(), 255);
  EXPECT_FALSE(open.isChecked("unwanted"));
}

TEST_F(SceneWindowTest, TellsTheValuesOfWhatIsPicked) {
  const auto mesh = makePolyData({{-0.5F, -0.9F, 0}, {0.5F, -0.9F, 0}, {0.5F, -0.5F, 0}, {-0.5F, -0.5F, 0}},
                                 {.verts = {{0}}, .polys = {{0, 1, 2}, {0, 2, 3}}});
  auto& surface = scene.addSurface(mesh, {0, 1, 0});
  name(surface, "plate \xFF");
  auto& piece = *surface.find<lum::PolyDataNode>();
  piece.setNodeDataArray(makeArray("heat", {10, 11, 0.1F, 13}));
  piece.setNodeDataArray(makeArray("flow", {0, 0, 0, 0, 0, 0, 3, 4, 0, 0, 0, 0}, 3));
  piece.setCellDataArray(makeArray("load", {0.5F, 1.5F, 2.5F}));
  OpenWindow open(scene.node());

  open.click(open.placeOf(0.45, -0.6));
  EXPECT_EQ(open.value("Name"), "Model / plate \xEF\xBF\xBD");
  EXPECT_EQ(open.value("Kind"), "Surface");
  EXPECT_EQ(open.value("Cell"), "1");
  EXPECT_EQ(open.value("Nearest point"), "2");
  EXPECT_EQ(open.value("Its position"), "(0.5, -0.5, 0)");
  EXPECT_EQ(open.value("heat"), "0.1");
  EXPECT_EQ(open.value("flow"), "(3, 4, 0), length 5");
  EXPECT_EQ(open.value("load"), "1.5");
  EXPECT_EQ(open.list().currentIndex(), open.row(QString::fromUtf8("plate \xEF\xBF\xBD")));

  open.values().setFocus();
  open.values().selectAll();
  QTest::keyClick(&open.values(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("heat\t0.1\n"));

  open.click(open.placeOf(0, 0.9));
  EXPECT_EQ(open.value("Name"), "");
  EXPECT_FALSE(open.list().currentIndex().isValid());

  open.selectRow(QString::fromUtf8("plate \xEF\xBF\xBD"));
  EXPECT_EQ(open.value("Polygons"), "2");
  EXPECT_EQ(open.value("heat"), "0.1 .. 13");
}

TEST_F(SceneWindowTest, SavesWhatIsSeenWithoutTheMarks) {
  OpenWindow open(scene.node());
  const QImage first = open.look();
  open.click(open.placeOf(-0.5, 0));
  EXPECT_FALSE(isSame(open.look(), first)) << "what is picked is marked";
  const TemporaryFolder folder;
  const QString path = QString::fromStdString(folder / "picture.png");
  open.window().savePicture(path);
  // On the screen VTK smooths edges in another way.
  constexpr int EDGES = 60;
  EXPECT_TRUE(isSame(QImage(path), first, EDGES));
  EXPECT_FALSE(isSame(open.look(), first)) << "and stays so";
  EXPECT_THROW(open.window().savePicture(QString::fromStdString(folder / "no folder/x.png")),
               PictureWriteError);
}

TEST(SceneWindow, StaysUsableWithTenThousandItems) {
  constexpr int SIDE = 100;
  RenderScene scene;
  for (int i = 0; i < SIDE * SIDE; ++i) {
    const int column = i % SIDE;
    const int row = i / SIDE;
    const auto left = static_cast<float>(column) / SIDE - 0.5F;
    const auto bottom = static_cast<float>(row) / SIDE - 0.5F;
    auto& surface =
        scene.addSurface(makeRectangle(left, left + 1.0F / SIDE, bottom, bottom + 1.0F / SIDE), PINK);
    name(surface, (column < SIDE / 2 ? "left " : "right ") + std::to_string(i));
  }
  OpenWindow open(scene.node());
  const QImage all = open.look();
  open.type("left");
  open.pressButton("hide");
  const double half = 0.5 * OpenWindow::countPink(all);
  EXPECT_NEAR(open.countPink(), half, 0.04 * half);
  open.type("");
  open.click(open.placeOf(0.255, 0.255));
  EXPECT_EQ(open.value("Name"), "Model / right 7575");
  open.click(open.placeOf(-0.255, 0.255));
  EXPECT_EQ(open.value("Name"), "") << "what is hidden is not picked";
  open.press(Qt::Key_A);
  EXPECT_TRUE(isSame(open.look(), all));
}

}  // namespace

}  // namespace vemo
