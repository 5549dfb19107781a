// Features whose layout is the renderer's own affair: that their picture says
// what the scene says.

#include "features/FeatureScene.h"
#include "render/Pixels.h"
#include <vemo/render/MeasureText.h>

#include <vtkFreeTypeTools.h>
#include <vtkObjectFactory.h>
#include <vtkSmartPointer.h>

#include <array>
#include <gtest/gtest.h>
#include <typeinfo>

namespace vemo {

namespace {

using Pixel = Picture::Pixel;
using Vector2 = Vector<2, double>;

constexpr int SIZE = FeatureScene::SIZE;
constexpr Pixel BLACK = {0, 0, 0};
constexpr Pixel WHITE = {255, 255, 255};

/// Of black lines and letters, thin ones too.
bool isDark(const Pixel& pixel) {
  return std::ranges::max(pixel) < 100;
}

// ---- Legend ----

const std::array<Pixel, 4> COLORS = {{{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}}};

Picture drawLegend(const std::string& legend, const std::string& colormap = "min='0' max='100'") {
  return FeatureScene(assembly("A",
                               "<colormap name='a' title='Unused' min='7' max='8'><c>00ffffff</c>"
                               "</colormap><colormap name='b' " +
                                   colormap +
                                   "><c>ff0000ff</c><c>00ff00ff</c><c>0000ffff</c><c>ffff00ff</c>"
                                   "</colormap><legend visibility='1' colormap='b' title='Pressure' " +
                                   legend + "</legend>" + geometry("points='four' visibility='0'")),
                      "ffffff00")
      .draw();
}

const std::string UPRIGHT = "textHeight='0.05'><position x='0.25' y='0.125'/><size x='0.5' y='0.75'/>";

/// Expects dark lines of ticks beside an upright bar, the first and each next
/// one at these places from its bottom to its top.
void expectTicks(const Picture& picture, const PixelBox& bar, double first, double step) {
  const int column = bar.right + 2;
  int ticks = 0;
  for (int row = SIZE - 2; row > 0; --row) {
    if (isDark(picture.at(column, row)) && !isDark(picture.at(column, row + 1))) {
      EXPECT_NEAR(SIZE - row - 1, bar.bottom + (first + ticks * step) * bar.height(), 1.5);
      ++ticks;
    }
  }
  EXPECT_EQ(ticks, 5);
}

TEST(LegendFeatureTest, IsVerticalWithTicksAtTheEndsOfTheBar) {
  const Picture picture = drawLegend("numberFormat='%.0f Pa' " + UPRIGHT);
  PixelBox bar = boxOf(picture, COLORS.front());
  bar.top = boxOf(picture, COLORS.back()).top;
  int bottom = bar.bottom;
  for (const Pixel& color : COLORS) {
    const PixelBox field = boxOf(picture, color);
    EXPECT_GE(field.bottom, bottom) << "the low end is at the bottom";
    EXPECT_EQ(field.count, field.width() * field.height());
    bottom = field.top;
  }
  expectTicks(picture, bar, 0, 0.25);
  const PixelBox ink = inkOn(picture, WHITE);
  EXPECT_GE(ink.left, 74);
  EXPECT_LE(ink.right, 226);
  EXPECT_GE(ink.bottom, 37);
  EXPECT_LE(ink.top, 264);
  const PixelBox text = boxWhere(picture, isDark);
  EXPECT_GT(text.right, bar.right + 30) << "numbers beside the bar";
  EXPECT_GT(text.top, bar.top + 10) << "the title above it";
}

TEST(LegendFeatureTest, IsHorizontalFromLeftToRightInItsTextColour) {
  const Picture picture = drawLegend(
      "orientation='HORIZONTAL' numberOfLabels='3'><position x='0.2' y='0.1'/><size x='0.6' y='0.25'/>"
      "<font facename='Times' textColor='ff00ffff'/>");
  int left = 60;
  for (const Pixel& color : COLORS) {
    const PixelBox field = boxOf(picture, color);
    EXPECT_GE(field.left, left);
    EXPECT_GT(field.width(), field.height());
    left = field.right;
  }
  EXPECT_LE(inkOn(picture, WHITE).right, 241);
  EXPECT_GT(boxOf(picture, {255, 0, 255}).count, 100);
  EXPECT_EQ(boxOf(picture, BLACK).count, 0);
}

TEST(LegendFeatureTest, PutsLogarithmicTicksAtPowersOfTen) {
  const Picture picture = drawLegend(UPRIGHT, "min='0.05' max='5000' log10='true'");
  PixelBox bar = boxOf(picture, COLORS.front());
  bar.top = boxOf(picture, COLORS.back()).top;
  // 0.1, 1, 10, 100 and 1000 on a bar of five powers of ten that begins at 0.05.
  expectTicks(picture, bar, 0.301 / 5, 0.2);
}

/// No ink at the window's edges: all of it is seen.
TEST(LegendFeatureTest, IsNeverCut) {
  const std::string range = "min='-123456' max='123456'";
  for (const char* const attributes :
       {">", "textHeight='0.06'>", "textHeight='0.3'>", "numberFormat='%.9f kg/m²'>",
        "textHeight='0.06'><position x='0.9' y='0.5'/><size x='0.1' y='0.2'/>",
        "textHeight='0.06' numberFormat='%.3f Pa' orientation='HORIZONTAL'>"}) {
    SCOPED_TRACE(attributes);
    const PixelBox ink = inkOn(drawLegend(attributes, range), WHITE);
    EXPECT_GT(ink.width(), 20);
    EXPECT_GT(ink.left, 0);
    EXPECT_GT(ink.bottom, 0);
    EXPECT_LT(ink.right, SIZE);
    EXPECT_LT(ink.top, SIZE);
  }
}

TEST(LegendFeatureTest, IsNotCoveredByAnother) {
  for (const std::string orientation : {"VERTICAL", "HORIZONTAL"}) {
    const auto legend = [&](const std::string& name, const std::string& color) {
      return assembly(name,
                      "<colormap min='-123456' max='123456'><c>808080ff</c></colormap>"
                      "<legend visibility='1' title='Temperature' textHeight='0.06' orientation='" +
                          orientation + "'><font textColor='" + color + "'/></legend>" +
                          geometry("points='four' visibility='0'"));
    };
    const Picture picture =
        FeatureScene(legend("A", "ff0000ff") + legend("B", "0000ffff"), "ffffff00").draw();
    const PixelBox first = boxWhere(picture, [](const Pixel& pixel) { return pixel[0] > pixel[2] + 40; });
    const PixelBox second = boxWhere(picture, [](const Pixel& pixel) { return pixel[2] > pixel[0] + 40; });
    EXPECT_GT(std::min(first.count, second.count), 200) << orientation;
    EXPECT_TRUE(second.right <= first.left || first.top <= second.bottom) << orientation;
  }
}

// ---- Annotations ----

TEST(AnnotationFeatureTest, StandsInTheWindowByAnyOfItsPoints) {
  const char* const horizontals[] = {"LEFT", "CENTER", "RIGHT"};
  const char* const verticals[] = {"BOTTOM", "CENTER", "TOP"};
  for (int place = 0; place < 9; ++place) {
    const int horizontal = place % 3;
    const int vertical = place / 3;
    const std::string words = std::string("horizontalAlignment='") + horizontals[horizontal] +
                              "' verticalAlignment='" + verticals[vertical] + "'";
    SCOPED_TRACE(words);
    const Picture picture =
        FeatureScene("<annotation visibility='1' text='Hxx' textHeight='0.1' " + words +
                     "><position x='0.5' y='0.5'/>"
                     "<font facename='Courier' bold='true' textColor='ffff0000'/></annotation>")
            .draw();
    const PixelBox box = inkOn(picture, BLACK);
    EXPECT_NEAR(box.width(), 48, 12);
    EXPECT_NEAR(box.height(), 19, 5);
    EXPECT_NEAR(box.left + 0.5 * horizontal * box.width(), 0.5 * SIZE, 4);
    // Letters may reach below the line.
    EXPECT_NEAR(box.bottom + 0.5 * vertical * box.height(), 0.5 * SIZE, 9);
    EXPECT_GT(boxOf(picture, {255, 255, 0}).count, 100);
    TextDecoration text;
    text.text = "Hxx";
    text.horizontal = static_cast<TextDecoration::Horizontal>(horizontal);
    text.vertical = static_cast<TextDecoration::Vertical>(vertical);
    text.style.family = TextStyle::Family::COURIER;
    text.style.isBold = true;
    const TextBox measured = measureText(text, 0.1 * SIZE).value();
    EXPECT_NEAR(measured.low[0], box.left - 0.5 * SIZE, 1);
    EXPECT_NEAR(measured.low[1], box.bottom - 0.5 * SIZE, 1);
    EXPECT_NEAR(measured.high[0], box.right - 0.5 * SIZE, 1);
    EXPECT_NEAR(measured.high[1], box.top - 0.5 * SIZE, 1);
  }
}

TEST(AnnotationFeatureTest, IsMeasuredWithASoundCacheOfGlyphs) {
  const auto tools = vtkSmartPointer<vtkObject>::Take(vtkObjectFactory::CreateInstance("vtkFreeTypeTools"));
  ASSERT_NE(tools, nullptr);
  const vtkObject& used = *vtkFreeTypeTools::GetInstance();
  EXPECT_EQ(typeid(used), typeid(*tools));
}

TEST(AnnotationFeatureTest, StandsInTheModelInFrontOfAll) {
  // A surface that hides the place, and one that does not.
  for (const std::string face : {"000000ff", "303030ff"}) {
    const FeatureScene scene(
        "<annotation visibility='1' mode='MODEL' text='Hxx&#10;Hxx' textHeight='0.1'>"
        "<position x='0.2' y='-0.4' z='-3'/><font textColor='00ffffff'/></annotation>" +
        geometry("points='hill' polys='hillFaces' faceColor='" + face + "'"));
    const PixelBox box = boxOf(scene.draw(), {0, 255, 255});
    EXPECT_NEAR(box.left, 180, 4);
    EXPECT_NEAR(box.bottom, 90, 7);
    EXPECT_NEAR(box.height(), 19 + 30, 6) << "two lines";
  }
}

// ---- Triads ----

/// Where, from the middle of a square in the lower left corner, pixels are of
/// which one channel stands out: the mean of the places, x to the right and y
/// upwards.
Vector2 meanPlace(const Picture& picture, std::size_t channel, int size) {
  Vector2 sum;
  int count = 0;
  for (int y = 0; y < size; ++y) {
    for (int x = 0; x < size; ++x) {
      const Pixel pixel = picture.at(x, SIZE - 1 - y);
      if (pixel[channel] > std::max(pixel[(channel + 1) % 3], pixel[(channel + 2) % 3]) + 40) {
        sum += {x + 0.5 - size / 2.0, y + 0.5 - size / 2.0};
        ++count;
      }
    }
  }
  return (1.0 / std::max(count, 1)) * sum;
}

TEST(AxesFeatureTest, TurnWithTheModelsCamera) {
  // The triad has a fifth of the window.
  constexpr int CORNER = SIZE / 5;
  const struct {
    std::string view;
    /// Where the axes' ends are seen, in lengths of an axis: x, y, z.
    std::array<Vector2, 3> ends;
  } cases[] = {
      {"<position z='5'/><up y='1'/>", {{{1, 0}, {0, 1}, {0, 0}}}},
      {"<position z='-5'/><up y='1'/>", {{{-1, 0}, {0, 1}, {0, 0}}}},
      {"<position x='5'/><up z='1'/>", {{{0, 0}, {1, 0}, {0, 1}}}},
      {"<position x='1' y='1' z='1'/><up z='1'/>", {{{-0.707, -0.408}, {0.707, -0.408}, {0, 0.816}}}}};
  for (const auto& [view, ends] : cases) {
    SCOPED_TRACE(view);
    const Picture picture =
        FeatureScene("<view>" + view + "</view><axes visibility='1' textColor='000000ff'/>", "ffffff00")
            .draw();
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const Vector2 seen = meanPlace(picture, axis, CORNER);
      // The middle of an arrow, give or take what others hide of it.
      const double middle = 1.5 * 0.6 * CORNER / 4.4;
      EXPECT_NEAR(seen[0], ends.at(axis)[0] * middle, 3) << axis;
      EXPECT_NEAR(seen[1], ends.at(axis)[1] * middle, 3) << axis;
    }
    EXPECT_GT(boxWhere(picture, isDark).count, 5) << "labels";
    const PixelBox ink = inkOn(picture, WHITE);
    EXPECT_LE(std::max(ink.right, ink.top), CORNER);
  }
}

TEST(AxesFeatureTest, FitIntoTheCornerOfANarrowWindow) {
  constexpr int WIDTH = SIZE / 3;
  const FeatureScene scene("<view><position z='5'/></view><axes visibility='1' textColor='000000ff'/>",
                           "ffffff00");
  const double side = WIDTH / 5.0;
  const PixelBox ink = inkOn(scene.draw(WIDTH), WHITE);
  EXPECT_GT(ink.right, 0.9 * side) << "the label of x";
  EXPECT_LT(ink.right, side);
  EXPECT_NEAR(ink.top, SIZE / 10.0 + ink.right - side / 2, 3) << "y is as long as x";
}

TEST(CoordinateSystemFeatureTest, StandsInTheModelAsLargeOnTheScreenAtEveryScale) {
  for (const int scale : {1, 100}) {
    const std::string place = std::to_string(-0.3 * scale);
    const FeatureScene scene(
        "<view parallelScale='" + std::to_string(scale) + "'><position z='5'/></view>" +
            assembly("A", "<coordinatesystem visibility='1' textColor='000000ff'><origin x='" + place +
                              "' y='" + place + "'/><xaxis x='9'/><yaxis x='3'/><zaxis y='-2'/>" +
                              "</coordinatesystem>"),
        "ffffff00");
    const Picture picture = scene.draw();
    // z points down, y to the right; x then comes out of the picture. An axis
    // is three labels long.
    const double middle = 0.6 * 3 * 0.035 * SIZE;
    const Vector2 y = meanPlace(picture, 1, SIZE);
    const Vector2 z = meanPlace(picture, 2, SIZE);
    EXPECT_NEAR(y[0], -45 + middle, 4) << scale;
    EXPECT_NEAR(y[1], -45, 3) << scale;
    EXPECT_NEAR(z[0], -45, 3) << scale;
    EXPECT_NEAR(z[1], -45 - middle, 4) << scale;
  }
}

TEST(CoordinateSystemFeatureTest, IsLitFromTheSameSideWhenItIsMirrored) {
  const Picture picture =
      FeatureScene("<view><position z='5'/></view>" +
                       assembly("A",
                                "<reflect planeEqnCoeffA='1'/><coordinatesystem visibility='1' "
                                "textColor='000000ff'><origin x='0.3'/></coordinatesystem>"),
                   "ffffff00")
          .draw();
  EXPECT_LT(boxWhere(picture, isDark).count, 20);
  const PixelBox triads = inkOn(picture, WHITE);
  EXPECT_NEAR(triads.left + triads.right, SIZE, 2) << "two of them";
}

// ---- Background ----

TEST(GradientFeatureTest, RunsFromTheFirstColourToTheSecond) {
  constexpr int MIDDLE = SIZE / 2;
  constexpr int END = SIZE - 1;
  const struct {
    std::string mode;
    /// The share of the second colour in per cent at the middle of each side, in
    /// the centre and in the upper right corner.
    int top, bottom, left, right, centre, corner;
  } cases[] = {{"TOP_BOTTOM", 0, 100, 50, 50, 50, 0},
               {"BOTTOM_TOP", 100, 0, 50, 50, 50, 100},
               {"LEFT_RIGHT", 50, 50, 0, 100, 50, 100},
               {"RIGHT_LEFT", 50, 50, 100, 0, 50, 0},
               {"RADIAL", 71, 71, 71, 71, 0, 100}};
  for (const auto& [mode, top, bottom, left, right, centre, corner] : cases) {
    SCOPED_TRACE(mode);
    const Picture picture =
        FeatureScene("<gradient topColor='ff000000' bottomColor='0000ff00' mode='" + mode + "'/>").draw();
    const auto expectShare = [&](int column, int row, int share) {
      const Pixel pixel = picture.at(column, row);
      EXPECT_NEAR(pixel[2] / 2.55, share, 1.5) << column << ", " << row;
      EXPECT_NEAR(pixel[0] + pixel[2], 255, 1) << column << ", " << row;
    };
    expectShare(MIDDLE, 0, top);
    expectShare(MIDDLE, END, bottom);
    expectShare(0, MIDDLE, left);
    expectShare(END, MIDDLE, right);
    expectShare(MIDDLE, MIDDLE, centre);
    expectShare(END, 0, corner);
  }
}

}  // namespace

}  // namespace vemo
