#include "colors.h"
#include "scenes.h"
#include "shapes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fmt/format.h>
#include <iterator>
#include <numbers>

namespace examples {
namespace {

constexpr int RINGS = 11;
constexpr int SPOKES = 36;
constexpr double AMPLITUDE = 0.34;
constexpr double DISTANCE = 2.4;
constexpr double ROW_DISTANCE = 2.7;
constexpr std::size_t COLUMNS = 3;

/// A mode of the membrane of a drum of radius 1: J_m(j r) cos(m phi), where j is
/// the circle-th zero of the Bessel function J_m. There are m nodal diameters,
/// and so many nodal circles, the rim among them. Source: Rayleigh, "The Theory
/// of Sound", volume 1, chapter 9.
struct Mode {
  int diameters;
  int circles;
};

constexpr Mode MODES[] = {{0, 1}, {1, 1}, {2, 1}, {0, 2}, {3, 1}, {1, 2}};

/// The count-th positive zero of J_order: steps until the sign changes, then
/// halves the interval.
double zeroOfBessel(int order, int count) {
  constexpr double STEP = 0.1;
  double left = STEP;
  for (int found = 0;; left += STEP) {
    if (std::cyl_bessel_j(order, left) * std::cyl_bessel_j(order, left + STEP) < 0.0 && ++found == count) {
      break;
    }
  }
  double right = left + STEP;
  while (right - left > 1e-12) {
    const double middle = (left + right) / 2.0;
    const bool isLeft = std::cyl_bessel_j(order, left) * std::cyl_bessel_j(order, middle) < 0.0;
    (isLeft ? right : left) = middle;
  }
  return left;
}

/// How far the membrane is out, from -1 to 1, on the rings and spokes of the mesh.
class Deflection {
 public:
  explicit Deflection(Mode mode) : _mode(mode), _zero(zeroOfBessel(mode.diameters, mode.circles)) {
    constexpr int SAMPLES = 400;
    for (int i = 0; i <= SAMPLES; ++i) {
      _largest = std::max(_largest, std::abs(std::cyl_bessel_j(_mode.diameters, _zero * i / SAMPLES)));
    }
  }

  double at(double radius, double angle) const {
    return std::cyl_bessel_j(_mode.diameters, _zero * radius) * std::cos(_mode.diameters * angle) / _largest;
  }

 private:
  Mode _mode;
  double _zero;
  double _largest = 0.0;
};

double angleOf(double spoke) {
  return 2.0 * std::numbers::pi * spoke / SPOKES;
}

std::int32_t pointOf(int ring, int spoke) {
  return ring == 0 ? 0 : 1 + (ring - 1) * SPOKES + spoke % SPOKES;
}

/// The membrane; each cell has the deflection of its middle.
Geometry makeMembrane(const Deflection& deflection, double amplitude) {
  Geometry membrane;
  membrane.name = "membrane";
  std::vector<double> cellValues;
  for (int ring = 0; ring <= RINGS; ++ring) {
    const double radius = static_cast<double>(ring) / RINGS;
    for (int spoke = 0; spoke < (ring == 0 ? 1 : SPOKES); ++spoke) {
      const double angle = angleOf(spoke);
      membrane.points.push_back(
          {radius * std::cos(angle), radius * std::sin(angle), amplitude * deflection.at(radius, angle)});
    }
  }
  for (int ring = 0; ring < RINGS; ++ring) {
    for (int spoke = 0; spoke < SPOKES; ++spoke) {
      std::vector<std::int32_t> cell{pointOf(ring, spoke), pointOf(ring + 1, spoke),
                                     pointOf(ring + 1, spoke + 1), pointOf(ring, spoke + 1)};
      if (ring == 0) {
        cell.pop_back();
      }
      Geometry::addCell(membrane.polys, cell);
      cellValues.push_back(deflection.at((ring + 0.5) / RINGS, angleOf(spoke + 0.5)));
    }
  }
  membrane.arrays.push_back({"deflection", false, cellValues});
  return membrane;
}

/// The hoop that holds the membrane.
Geometry makeHoop() {
  constexpr double RADIUS = 1.01;
  constexpr double TOP = 0.03;
  constexpr double BOTTOM = -0.16;
  return makeSheet("hoop", 2, SPOKES + 1, [](double row, double column) {
    const double angle = angleOf(column * SPOKES);
    return Point{RADIUS * std::cos(angle), RADIUS * std::sin(angle), BOTTOM + (TOP - BOTTOM) * row};
  });
}

void addMode(SceneWriter& scene, Mode mode, const Point& place) {
  scene.beginItem("assembly", fmt::format("Mode ({}, {})", mode.diameters, mode.circles));
  scene.addTransform({0.0, 0.0, 1.0}, 0.0, place);
  scene.addGeometry(makeMembrane(Deflection(mode), AMPLITUDE),
                    {{"showEdges", "true"}, {"smoothShading", "false"}, {"lineColor", "3a4250ff"}});
  scene.addGeometry(makeHoop(), {{"faceColor", "a98258ff"},
                                 {"ambient", "0.5"},
                                 {"contour", "true"},
                                 {"lineColor", "20242cff"},
                                 {"lineWidth", "2"}});
  scene.end();
}

void addCaption(SceneWriter& scene, Mode mode, const Point& place) {
  scene.addAnnotation(fmt::format("({}, {})", mode.diameters, mode.circles),
                      {place[0], place[1] - 1.12, place[2] - 0.16}, "20242cff",
                      {{"mode", "MODEL"},
                       {"horizontalAlignment", "CENTER"},
                       {"verticalAlignment", "TOP"},
                       {"textHeight", "0.04"}});
}

Point placeOf(std::size_t mode) {
  const auto column = static_cast<double>(mode % COLUMNS);
  return {(column - 1.0) * DISTANCE, (mode < COLUMNS ? 0.5 : -0.5) * ROW_DISTANCE, 0.0};
}

}  // namespace

SceneWriter makeDrum() {
  SceneWriter scene;
  scene.beginItem("scene", "Modes of a drum", {{"background", "ffffffff"}});
  scene.addView({0.0, -7.0, 8.0}, {0.0, -0.5, 0.0}, {0.0, 0.0, 1.0}, false, 2.66);
  scene.addGradient("dfe4ecff", "ffffffff", "TOP_BOTTOM");
  scene.addLight(0.8, -40.0, 35.0, "ffffffff");
  scene.addLight(0.4, 50.0, 20.0, "ffffffff");
  scene.beginItem("assembly", "Drum");
  scene.addColormap("deflection", -1.0, 1.0, "Deflection / largest deflection", divergingColors());
  scene.addLegend({0.3, 0.02, 0.0}, {0.4, 0.13, 0.0}, "000000ff",
                  {{"orientation", "HORIZONTAL"}, {"numberFormat", "%.1f"}});
  for (std::size_t mode = 0; mode < std::size(MODES); ++mode) {
    addMode(scene, MODES[mode], placeOf(mode));
  }
  scene.beginItem("assembly", "At rest", {{"visibility", "0"}});
  scene.addGeometry(makeMembrane(Deflection(MODES[0]), 0.0));
  scene.end();
  scene.end();
  for (std::size_t mode = 0; mode < std::size(MODES); ++mode) {
    addCaption(scene, MODES[mode], placeOf(mode));
  }
  scene.end();
  return scene;
}

}  // namespace examples
