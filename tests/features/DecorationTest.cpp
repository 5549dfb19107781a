// Features whose layout is the renderer's own affair: what they become in the
// scene graph, by the files in tests/data/expected/features, and that their
// picture says what the scene says.

#include "features/DirectDrawing.h"
#include "features/FeatureScene.h"

#include <vtkRenderer.h>

#include <algorithm>
#include <array>
#include <vector>

namespace vemo {

namespace {

using Pixel = Picture::Pixel;
using Vector2 = Vector<2, double>;

constexpr int SIZE = FeatureScene::SIZE;
constexpr Pixel BLACK = {0, 0, 0};
constexpr Pixel WHITE = {255, 255, 255};
const std::string ON_BLACK = "background='00000000'";
const std::string ON_WHITE = "background='ffffff00'";

/// The columns, and the rows counted from below, of the pixels that something
/// holds of.
struct Box {
  int left = SIZE, right = 0, bottom = SIZE, top = 0;
  int pixels = 0;

  int width() const { return right - left; }
  int height() const { return top - bottom; }
};

template <class Predicate>
Box boxWhere(const Picture& picture, Predicate&& predicate) {
  Box box;
  for (int row = 0; row < SIZE; ++row) {
    for (int column = 0; column < SIZE; ++column) {
      if (predicate(picture.at(column, row))) {
        box.left = std::min(box.left, column);
        box.right = std::max(box.right, column + 1);
        box.bottom = std::min(box.bottom, SIZE - row - 1);
        box.top = std::max(box.top, SIZE - row);
        ++box.pixels;
      }
    }
  }
  return box;
}

Box boxOf(const Picture& picture, const Pixel& color) {
  return boxWhere(picture, [&](const Pixel& pixel) { return pixel == color; });
}

/// Of black lines and letters, thin ones too.
bool isDark(const Pixel& pixel) {
  return std::ranges::max(pixel) < 100;
}

/// All that is not the ground.
Box inkOn(const Picture& picture, const Pixel& ground) {
  return boxWhere(picture, [&](const Pixel& pixel) { return pixel != ground; });
}

// ---- Legend ----

const std::vector<Pixel> COLORS = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}};

FeatureScene legendScene(const std::string& attributes, const std::string& colormap = "min='0' max='100'") {
  return FeatureScene(assembly("A",
                               "<colormap name='a' title='Unused' min='7' max='8'><c>00ffffff</c></colormap>"
                               "<colormap name='b' " +
                                   colormap +
                                   "><c>ff0000ff</c><c>00ff00ff</c><c>0000ffff</c><c>ffff00ff</c></colormap>"
                                   "<legend name='bar' visibility='1' colormap='b' title='Pressure' " +
                                   attributes + geometry("points='four' visibility='0'")),
                      ON_WHITE);
}

const std::string UPRIGHT =
    "textHeight='0.05'><position x='0.25' y='0.125'/><size x='0.5' y='0.75'/></legend>";

/// The rows, from the bottom to the top, at which the dark lines of ticks are in
/// a column to the right of the bar.
std::vector<int> ticksBeside(const Picture& picture, const Box& bar) {
  const int column = bar.right + 2;
  std::vector<int> rows;
  for (int row = SIZE - 2; row > 0; --row) {
    if (isDark(picture.at(column, row)) && !isDark(picture.at(column, row + 1))) {
      rows.push_back(SIZE - row - 1);
    }
  }
  return rows;
}

TEST(LegendFeature, StandsUprightWithItsTicksAtTheEndsOfTheBar) {
  const FeatureScene scene = legendScene("numberFormat='%.0f Pa' " + UPRIGHT);
  scene.expectGraph();

  const Picture picture = scene.draw();
  int bottom = 0;
  Box bar;
  for (const Pixel& color : COLORS) {
    const Box field = boxOf(picture, color);
    EXPECT_GE(field.bottom, bottom) << "the low end is at the bottom";
    EXPECT_EQ(field.pixels, field.width() * field.height());
    bottom = field.top;
    bar.left = std::min(bar.left, field.left);
    bar.right = std::max(bar.right, field.right);
    bar.bottom = std::min(bar.bottom, field.bottom);
    bar.top = std::max(bar.top, field.top);
  }
  const auto ticks = ticksBeside(picture, bar);
  ASSERT_EQ(ticks.size(), 5U);
  EXPECT_NEAR(ticks.front(), bar.bottom, 1.5);
  EXPECT_NEAR(ticks.back(), bar.top, 1.5);
  for (std::size_t i = 0; i < ticks.size(); ++i) {
    EXPECT_NEAR(ticks[i], bar.bottom + static_cast<double>(i) * bar.height() / 4.0, 1.5);
  }
  const Box ink = inkOn(picture, WHITE);
  EXPECT_GE(ink.left, 74);
  EXPECT_LE(ink.right, 226);
  EXPECT_GE(ink.bottom, 37);
  EXPECT_LE(ink.top, 264);
  const Box text = boxWhere(picture, isDark);
  EXPECT_GT(text.right, bar.right + 30) << "numbers beside the bar";
  EXPECT_GT(text.top, bar.top + 10) << "the title above it";
}

TEST(LegendFeature, LiesWithItsLowEndAtTheLeftAndWritesInItsColour) {
  const FeatureScene scene = legendScene(
      "orientation='HORIZONTAL' numberOfLabels='3'><position x='0.2' y='0.1'/><size x='0.6' y='0.25'/>"
      "<font facename='Times' textColor='ff00ffff'/></legend>");
  scene.expectGraph();

  const Picture picture = scene.draw();
  int left = 60;
  for (const Pixel& color : COLORS) {
    const Box field = boxOf(picture, color);
    EXPECT_GE(field.left, left);
    EXPECT_GT(field.width(), field.height());
    left = field.right;
  }
  EXPECT_LE(inkOn(picture, WHITE).right, 241);
  EXPECT_GT(boxOf(picture, {255, 0, 255}).pixels, 100);
  EXPECT_EQ(boxOf(picture, BLACK).pixels, 0);
}

TEST(LegendFeature, PutsLogarithmicTicksAtPowersOfTen) {
  const FeatureScene scene = legendScene(UPRIGHT, "min='0.05' max='5000' log10='true'");
  scene.expectGraph();
  const Picture picture = scene.draw();
  Box bar = boxOf(picture, COLORS.front());
  bar.top = boxOf(picture, COLORS.back()).top;
  const auto ticks = ticksBeside(picture, bar);
  // 0.1, 1, 10, 100 and 1000 on a bar of five powers of ten that begins at 0.05.
  ASSERT_EQ(ticks.size(), 5U);
  for (std::size_t i = 0; i < ticks.size(); ++i) {
    EXPECT_NEAR(ticks[i], bar.bottom + (0.301 + static_cast<double>(i)) * bar.height() / 5.0, 1.5);
  }
}

/// No ink at the window's edges: all of it is seen.
TEST(LegendFeature, IsNeverCut) {
  const std::string range = "min='-123456' max='123456'";
  const std::string placed = "><position x='0.9' y='0.5'/><size x='0.1' y='0.2'/></legend>";
  for (const std::string& attributes :
       {std::string("/>"), std::string("textHeight='0.06'/>"), std::string("textHeight='0.3'/>"),
        std::string("numberFormat='%.9f kg/m²'/>"), "textHeight='0.06'" + placed,
        std::string("textHeight='0.06' numberFormat='%.3f Pa' orientation='HORIZONTAL'/>")}) {
    SCOPED_TRACE(attributes);
    const Box ink = inkOn(legendScene(attributes, range).draw(), WHITE);
    EXPECT_GT(ink.width(), 20);
    EXPECT_GT(ink.left, 0);
    EXPECT_GT(ink.bottom, 0);
    EXPECT_LT(ink.right, SIZE);
    EXPECT_LT(ink.top, SIZE);
  }
}

// ---- Annotations ----

TEST(AnnotationFeature, StandsInTheWindowByAnyOfItsPoints) {
  const char* const horizontals[] = {"LEFT", "CENTER", "RIGHT"};
  const char* const verticals[] = {"BOTTOM", "CENTER", "TOP"};
  for (int place = 0; place < 9; ++place) {
    const int horizontal = place % 3;
    const int vertical = place / 3;
    const std::string words = std::string("horizontalAlignment='") + horizontals[horizontal] +
                              "' verticalAlignment='" + verticals[vertical] + "'";
    SCOPED_TRACE(words);
    const FeatureScene scene("<annotation name='t' visibility='1' text='Hxx' textHeight='0.1' " + words +
                                 "><position x='0.5' y='0.5'/><font facename='Courier' bold='true' "
                                 "textColor='ffff0000'/></annotation>",
                             ON_BLACK);
    const Picture picture = scene.draw();
    const Box box = inkOn(picture, BLACK);
    EXPECT_NEAR(box.width(), 48, 12);
    EXPECT_NEAR(box.height(), 19, 5);
    EXPECT_NEAR(box.left + 0.5 * horizontal * box.width(), 0.5 * SIZE, 4);
    // Letters may reach below the line.
    EXPECT_NEAR(box.bottom + 0.5 * vertical * box.height(), 0.5 * SIZE, 9);
    EXPECT_GT(boxOf(picture, {255, 255, 0}).pixels, 100);
  }
}

TEST(AnnotationFeature, StandsInTheModelInFrontOfAll) {
  // A surface that hides the place, and one that does not.
  for (const std::string face : {"000000ff", "303030ff"}) {
    const FeatureScene scene(
        "<annotation visibility='1' mode='MODEL' text='Hxx&#10;Hxx' textHeight='0.1'>"
        "<position x='0.2' y='-0.4' z='-3'/><font textColor='00ffffff'/></annotation>" +
            geometry("points='hill' polys='hillFaces' faceColor='" + face + "'"),
        ON_BLACK);
    scene.expectGraph("-" + face);
    const Box box = boxOf(scene.draw(), {0, 255, 255});
    EXPECT_NEAR(box.left, 180, 4);
    EXPECT_NEAR(box.bottom, 90, 7);
    EXPECT_NEAR(box.height(), 19 + 30, 6) << "two lines";
  }
}

// ---- Triads ----

/// Where, from the middle of a square, pixels are of which one channel stands
/// out: the mean of the places, x to the right and y upwards.
Vector2 meanPlace(const Picture& picture, std::size_t channel, int left, int bottom, int size) {
  Vector2 sum;
  int count = 0;
  for (int y = bottom; y < bottom + size; ++y) {
    for (int x = left; x < left + size; ++x) {
      const Pixel pixel = picture.at(x, SIZE - 1 - y);
      if (pixel[channel] > std::max(pixel[(channel + 1) % 3], pixel[(channel + 2) % 3]) + 60) {
        sum[0] += x + 0.5 - left - size / 2.0;
        sum[1] += y + 0.5 - bottom - size / 2.0;
        ++count;
      }
    }
  }
  return count == 0 ? sum : Vector2{sum[0] / count, sum[1] / count};
}

struct TriadCase {
  const char* name;
  std::string view;
  /// Where the axes' ends are seen, in lengths of an axis: x, y, z.
  std::array<Vector2, 3> ends;
};

TEST(AxesFeature, TurnWithTheModelsCamera) {
  // The triad has a fifth of the window.
  constexpr int CORNER = SIZE / 5;
  const TriadCase cases[] = {{"FromTheFront", "<position z='5'/><up y='1'/>", {{{1, 0}, {0, 1}, {0, 0}}}},
                             {"FromBehind", "<position z='-5'/><up y='1'/>", {{{-1, 0}, {0, 1}, {0, 0}}}},
                             {"FromTheRight", "<position x='5'/><up z='1'/>", {{{0, 0}, {1, 0}, {0, 1}}}},
                             {"Askew",
                              "<position x='1' y='1' z='1'/><up z='1'/>",
                              {{{-0.707, -0.408}, {0.707, -0.408}, {0, 0.816}}}}};
  for (const auto& [name, view, ends] : cases) {
    SCOPED_TRACE(name);
    const FeatureScene scene("<view>" + view + "</view><axes visibility='1' textColor='000000ff'/>",
                             ON_WHITE);
    scene.expectGraph(std::string("-") + name);

    const Picture picture = scene.draw();
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const Vector2 seen = meanPlace(picture, axis, 0, 0, CORNER);
      // The middle of an arrow, give or take what others hide of it.
      const double middle = 1.5 * 0.6 * CORNER / 4.4;
      EXPECT_NEAR(seen[0], ends.at(axis)[0] * middle, 3) << axis;
      EXPECT_NEAR(seen[1], ends.at(axis)[1] * middle, 3) << axis;
    }
    EXPECT_GT(boxWhere(picture, isDark).pixels, 5) << "labels";
    const Box ink = inkOn(picture, WHITE);
    EXPECT_LE(std::max(ink.right, ink.top), CORNER);
  }
}

TEST(CoordinateSystemFeature, StandsInTheModelAsLargeOnTheScreenAtEveryScale) {
  for (const int scale : {1, 100}) {
    const std::string place = std::to_string(-0.3 * scale);
    const FeatureScene scene(
        "<view parallelScale='" + std::to_string(scale) + "'><position z='5'/></view>" +
            assembly("A",
                     "<coordinatesystem name='cs' visibility='1' textColor='000000ff' xlabel='u'>"
                     "<origin x='" +
                         place + "' y='" + place +
                         "'/><xaxis x='9'/><yaxis x='3'/><zaxis y='-2'/></coordinatesystem>"),
        ON_WHITE);
    scene.expectGraph("-" + std::to_string(scale));
    const Picture picture = scene.draw();
    // z points down, y to the right; x then comes out of the picture. An axis
    // is three labels long.
    const double middle = 0.6 * 3 * 0.035 * SIZE;
    const Vector2 y = meanPlace(picture, 1, 0, 0, SIZE);
    const Vector2 z = meanPlace(picture, 2, 0, 0, SIZE);
    EXPECT_NEAR(y[0], -45 + middle, 4) << scale;
    EXPECT_NEAR(y[1], -45, 3) << scale;
    EXPECT_NEAR(z[0], -45, 3) << scale;
    EXPECT_NEAR(z[1], -45 - middle, 4) << scale;
  }
}

// ---- Background ----

struct GradientCase {
  const char* word;
  /// The share of the second colour in per cent at the middle of each side, in
  /// the centre and in the upper right corner.
  int top, bottom, left, right, centre, corner;
};

class GradientFeature : public testing::TestWithParam<GradientCase> {};

TEST_P(GradientFeature, RunsFromTheFirstColourToTheSecond) {
  const auto& [word, top, bottom, left, right, centre, corner] = GetParam();
  const FeatureScene scene(std::string("<gradient topColor='ff000000' bottomColor='0000ff00' mode='") + word +
                           "'/>");
  scene.expectGraph();

  const Picture picture = scene.draw();
  constexpr int MIDDLE = SIZE / 2;
  const struct {
    int column, row, share;
  } places[] = {{MIDDLE, 0, top},          {MIDDLE, SIZE - 1, bottom}, {0, MIDDLE, left},
                {SIZE - 1, MIDDLE, right}, {MIDDLE, MIDDLE, centre},   {SIZE - 1, 0, corner}};
  for (const auto& [column, row, share] : places) {
    const Pixel pixel = picture.at(column, row);
    EXPECT_NEAR(pixel[2] / 2.55, share, 1.5) << column << ", " << row;
    EXPECT_NEAR(pixel[0] + pixel[2], 255, 1) << column << ", " << row;
  }
  if (std::string_view(word) == "TOP_BOTTOM") {
    // The one gradient that VTK has of its own.
    DirectDrawing direct(scene.items());
    direct.renderer().GradientBackgroundOn();
    direct.renderer().SetBackground(0, 0, 1);
    direct.renderer().SetBackground2(1, 0, 0);
    EXPECT_EQ(differenceOf(picture, direct.draw(), 2).share, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Modes, GradientFeature,
                         testing::Values(GradientCase{"TOP_BOTTOM", 0, 100, 50, 50, 50, 0},
                                         GradientCase{"BOTTOM_TOP", 100, 0, 50, 50, 50, 100},
                                         GradientCase{"LEFT_RIGHT", 50, 50, 0, 100, 50, 100},
                                         GradientCase{"RIGHT_LEFT", 50, 50, 100, 0, 50, 0},
                                         GradientCase{"RADIAL", 71, 71, 71, 71, 0, 100}),
                         [](const auto& one) { return std::string(one.param.word); });

}  // namespace

}  // namespace vemo
