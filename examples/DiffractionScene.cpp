#include "colors.h"
#include "scenes.h"
#include "shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

namespace examples {
namespace {

/// Places on the screen are in pi radius / (wavelength x distance of the
/// screen) of the holes: the first dark ring of one hole has the radius 3.83.
constexpr double HALF_WIDTH = 9.5;
/// Of the holes' middles, in radii of a hole.
constexpr double HOLE_DISTANCE = 3.4;
/// Intensities are counted so that the middle has BRIGHTEST; what is darker than
/// DARKEST is drawn as this.
constexpr double BRIGHTEST = 1e5;
constexpr double DARKEST = 1.0;

/// Light behind two round holes, over that in the middle: the rings of one hole
/// (Airy) crossed by the fringes of two (Young). Source: Born and Wolf,
/// "Principles of Optics", sections 8.5.2 and 8.5.4.
double intensity(double x, double y) {
  const double radius = std::hypot(x, y);
  const double airy = radius < 1e-9 ? 1.0 : 2.0 * std::cyl_bessel_j(1, radius) / radius;
  const double fringes = std::cos(HOLE_DISTANCE / 2.0 * x);
  return std::pow(airy * fringes, 2);
}

/// The amplitude as a height: its square, the intensity, has next to nothing
/// outside the middle.
constexpr double HEIGHT = 5.0;

Geometry makeRelief() {
  constexpr int SIDE = 141;
  const auto place = [](double part) { return HALF_WIDTH * (2.0 * part - 1.0); };
  Geometry relief = makeSheet("light", SIDE, SIDE, [&](double row, double column) {
    const double x = place(column);
    const double y = place(row);
    return Point{x, y, HEIGHT * std::sqrt(intensity(x, y))};
  });
  DataArray light{"intensity", true, {}};
  for (const Point& point : relief.points) {
    light.values.push_back(std::max(DARKEST, BRIGHTEST * intensity(point[0], point[1])));
  }
  relief.arrays.push_back(light);
  return relief;
}

/// What a photograph shows: dark places come out brighter than they are.
std::string makePhotograph(int side) {
  std::string pixels;
  for (int row = 0; row < side; ++row) {
    for (int column = 0; column < side; ++column) {
      const auto place = [=](int pixel) { return HALF_WIDTH * ((2.0 * pixel + 1.0) / side - 1.0); };
      const double light = std::pow(intensity(place(column), place(row)), 0.3);
      pixels.push_back(static_cast<char>(static_cast<unsigned char>(std::lround(8.0 + 247.0 * light))));
    }
  }
  return pixels;
}

/// The plate with its holes, in grey and alpha.
std::string makePlate(int side) {
  constexpr double EXTENT = 3.4;
  constexpr double GREY = 40.0;
  std::string pixels;
  for (int row = 0; row < side; ++row) {
    for (int column = 0; column < side; ++column) {
      const auto place = [=](int pixel) { return EXTENT * ((2.0 * pixel + 1.0) / side - 1.0); };
      const double fromHole = std::hypot(std::abs(place(column)) - HOLE_DISTANCE / 2.0, place(row));
      // The rim of a hole runs over the width of a pixel.
      const double light = std::clamp((1.0 - fromHole) * side / (2.0 * EXTENT) + 0.5, 0.0, 1.0);
      pixels.push_back(
          static_cast<char>(static_cast<unsigned char>(std::lround(GREY + (255.0 - GREY) * light))));
    }
  }
  return pixels;
}

void addPhotograph(SceneWriter& scene) {
  constexpr int SIDE = 240;
  scene.beginItem("image3d", "photograph",
                  {{"pixels", scene.addPixels(makePhotograph(SIDE))},
                   {"width", std::to_string(SIDE)},
                   {"height", std::to_string(SIDE)},
                   {"components", "1"}});
  constexpr double BEHIND = HALF_WIDTH + 1.0;
  scene.addVector("origin", {-HALF_WIDTH, BEHIND, 0.0});
  scene.addVector("xaxis", {2.0 * HALF_WIDTH, 0.0, 0.0});
  scene.addVector("yaxis", {0.0, 0.0, 2.0 * HALF_WIDTH});
  scene.end();
}

void addPlate(SceneWriter& scene) {
  constexpr int SIDE = 160;
  scene.beginItem("image2d", "plate",
                  {{"pixels", scene.addPixels(makePlate(SIDE))},
                   {"width", std::to_string(SIDE)},
                   {"height", std::to_string(SIDE)},
                   {"components", "1"},
                   {"opacity", "0.9"}});
  scene.addVector("position", {0.03, 0.7, 0.0});
  scene.addVector("size", {0.16, 0.24, 0.0});
  scene.end();
}

}  // namespace

SceneWriter makeDiffraction() {
  SceneWriter scene;
  scene.beginItem("scene", "Light behind two holes", {{"background", "10131aff"}});
  scene.addView({15.0, -48.0, 31.0}, {0.9, 2.5, 6.2}, {0.0, 0.0, 1.0}, true, 15.0);
  scene.addGradient("10131aff", "3a4660ff", "TOP_BOTTOM");
  scene.addLight(0.9, -30.0, 40.0, "ffffffff");
  scene.beginItem("assembly", "Screen");
  scene.addColormap(
      "intensity", DARKEST, BRIGHTEST, "Intensity",
      blend({"050313ff", "2a0a5aff", "7a1c6dff", "c8413fff", "f58c1eff", "fbe38bff", "ffffffff"}, 100), true);
  scene.addLegend({0.83, 0.22, 0.0}, {0.15, 0.56, 0.0}, "ffffffff",
                  {{"numberOfLabels", "6"}, {"numberFormat", "%g"}});
  scene.addGeometry(makeRelief(), {{"ambient", "0.35"}, {"diffuse", "0.7"}, {"specular", "0.15"}});
  addPhotograph(scene);
  addPlate(scene);
  scene.end();
  scene.addAnnotation(
      "the plate", {0.11, 0.69, 0.0}, "ffffffff",
      {{"horizontalAlignment", "CENTER"}, {"verticalAlignment", "TOP"}, {"textHeight", "0.035"}});
  scene.end();
  return scene;
}

}  // namespace examples
