#include "colors.h"
#include "scenes.h"
#include "shapes.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <numbers>
#include <vector>

namespace examples {
namespace {

using std::numbers::pi;

// Lengths are in radii of the propeller. Its axis is x, along which the water
// leaves; the first blade stands up (z).
constexpr int BLADES = 4;
constexpr double HUB_RADIUS = 0.17;
/// The advance in one radian of its turning: the tangent of the angle at which
/// the tip meets the water.
constexpr double ADVANCE = 0.34;
constexpr double MAX_CHORD = 0.62;
/// Of each propeller's axis from the middle of the ship.
constexpr double DISTANCE = 1.18;

/// The circulation at a radius of the blade, up to a factor, for the least loss:
/// Betz's of a propeller with many blades, brought to zero at the tip by
/// Prandtl's factor for few. Source: Betz and Prandtl, "Schraubenpropeller mit
/// geringstem Energieverlust", Goettinger Nachrichten (1919).
double circulation(double radius) {
  const double sinTip = ADVANCE / std::hypot(1.0, ADVANCE);
  const double exponent = BLADES / 2.0 * (1.0 - radius) / sinTip;
  const double tipFactor = 2.0 / pi * std::acos(std::exp(-exponent));
  return tipFactor * radius * radius / (radius * radius + ADVANCE * ADVANCE);
}

/// A blade that has the same coefficient of lift everywhere is as broad as the
/// circulation is large over the speed of the water.
double breadth(double radius) {
  return circulation(radius) / std::hypot(radius, ADVANCE);
}

double largest(double (*function)(double)) {
  constexpr int STEPS = 1000;
  double result = 0.0;
  for (int step = 1; step < STEPS; ++step) {
    result = std::max(result, function(static_cast<double>(step) / STEPS));
  }
  return result;
}

/// Half the thickness of the NACA four-digit sections over their chord, for a
/// thickness of 1. Source: Abbott and von Doenhoff, "Theory of Wing Sections",
/// section 6.4; the last coefficient is the one that closes the trailing edge.
double halfThickness(double place) {
  return 5.0 * (0.2969 * std::sqrt(place) - 0.1260 * place - 0.3516 * place * place +
                0.2843 * std::pow(place, 3) - 0.1036 * std::pow(place, 4));
}

/// A section of the blade, once around it, laid upon the cylinder of its radius.
Point bladePoint(double radius, double around) {
  static const double largestBreadth = largest(breadth);
  const double chord = MAX_CHORD * breadth(radius) / largestBreadth;
  const double thickness = 0.05 + 0.12 * std::pow(1.0 - radius, 2);
  const double place = (1.0 + std::cos(2.0 * pi * around)) / 2.0;
  const double camber = 0.12 * place * (1.0 - place);
  const double side = around < 0.5 ? -1.0 : 1.0;
  const double along = chord * (place - 0.5);
  const double across = chord * (side * thickness * halfThickness(place) - camber);
  const double pitch = std::atan2(ADVANCE, radius);
  const double turned = (along * std::cos(pitch) - across * std::sin(pitch)) / radius;
  const double rake = 0.10 * (radius - HUB_RADIUS);
  return {along * std::sin(pitch) + across * std::cos(pitch) + rake, radius * std::sin(turned),
          radius * std::cos(turned)};
}

Geometry makeBlade() {
  constexpr int RADII = 41;
  constexpr int AROUND = 49;
  constexpr double ROOT = 0.8 * HUB_RADIUS;
  // Dense at the tip, where the blade is round.
  const auto radiusOf = [](double row) { return ROOT + (0.9995 - ROOT) * std::sin(pi / 2.0 * row); };
  const double greatest = largest(circulation);
  DataArray load{"circulation", true, {}};
  Geometry blade = makeSheet("blade", RADII, AROUND, [&](double row, double column) {
    const double radius = radiusOf(row);
    load.values.push_back(circulation(radius) / greatest);
    return bladePoint(radius, column);
  });
  blade.arrays.push_back(load);
  return blade;
}

/// Shaft, hub and cap, turned about the axis: the radius at places along it.
Geometry makeHub() {
  constexpr double START = -1.9;
  constexpr double CYLINDER_END = 0.26;
  constexpr double CAP = 0.36;
  return makeSheet("hub", 60, 49, [](double row, double column) {
    const double x = START + (CYLINDER_END + CAP - START) * row;
    const double cap = std::clamp((x - CYLINDER_END) / CAP, 0.0, 1.0);
    const double shaft = std::clamp((-0.26 - x) / 0.1, 0.0, 1.0);
    const double radius =
        HUB_RADIUS * std::sqrt(1.0 - cap * cap) * (1.0 - 0.5 * shaft * shaft * (3.0 - 2.0 * shaft));
    return Point{x, radius * std::cos(2.0 * pi * column), radius * std::sin(2.0 * pi * column)};
  });
}

/// The vortices that leave the tips lie on the helices on which the tips move
/// through the water.
Geometry makeTipVortices() {
  constexpr double TURNS = 0.75;
  constexpr int STEPS_PER_TURN = 60;
  Geometry vortices;
  vortices.name = "tip vortices";
  for (int blade = 0; blade < BLADES; ++blade) {
    std::vector<Point> helix;
    for (int step = 0; step <= TURNS * STEPS_PER_TURN; ++step) {
      const double turned = 2.0 * pi * step / STEPS_PER_TURN;
      const double angle = turned + 2.0 * pi * blade / BLADES;
      const double radius = 0.95 + 0.05 * std::exp(-turned);
      helix.push_back({0.08 + ADVANCE * turned, radius * std::sin(angle), radius * std::cos(angle)});
    }
    addLine(vortices, helix);
  }
  return vortices;
}

void addPropeller(SceneWriter& scene) {
  scene.beginItem("assembly", "Propeller");
  scene.addColormap("circulation", 0.0, 1.0, "Circulation / greatest", sequentialColors());
  scene.addLegend(
      {0.87, 0.3, 0.0}, {0.12, 0.5, 0.0}, "000000ff",
      {{"title", "Circulation&#10;/ greatest"}, {"numberOfLabels", "6"}, {"numberFormat", "%.1f"}});
  scene.addTransform({1.0, 0.0, 0.0}, 0.0, {0.0, DISTANCE, 0.0});
  const Geometry blade = makeBlade();
  for (int i = 0; i < BLADES; ++i) {
    scene.beginItem("assembly", fmt::format("Blade {}", i + 1));
    scene.addTransform({1.0, 0.0, 0.0}, 4.0 * i / BLADES, {});
    scene.addGeometry(
        blade, {{"ambient", "0.35"}, {"diffuse", "0.65"}, {"specular", "0.45"}, {"specularPower", "30"}});
    scene.end();
  }
  scene.addGeometry(makeHub(), {{"faceColor", "c9a468ff"},
                                {"ambient", "0.25"},
                                {"diffuse", "0.6"},
                                {"specular", "0.8"},
                                {"specularPower", "60"}});
  scene.addGeometry(makeTipVortices(), {{"lineColor", "2f7fa8c0"}, {"lineWidth", "2"}});
  scene.end();
}

}  // namespace

SceneWriter makePropeller() {
  SceneWriter scene;
  scene.beginItem("scene", "Propellers of a twin-screw ship", {{"background", "ffffffff"}});
  scene.addView({6.6, -5.2, 3.0}, {0.35, 0.42, -0.12}, {0.0, 0.0, 1.0}, true, 2.0);
  scene.addGradient("b7d3e2ff", "fafcfdff", "TOP_BOTTOM");
  scene.addLight(1.0, -15.0, 25.0, "ffffffff");
  scene.addLight(0.35, 60.0, -10.0, "cfe6ffff");
  // The port screw is the mirror image of the starboard one, and turns against it.
  scene.beginItem("assembly", "Both sides");
  scene.add("reflect", {{"version", "2"},
                        {"planeEqnCoeffA", "0"},
                        {"planeEqnCoeffB", "1"},
                        {"planeEqnCoeffC", "0"},
                        {"planeEqnCoeffD", "0"},
                        {"flip", "true"}});
  addPropeller(scene);
  scene.end();
  scene.addAnnotation(
      "Propellers of least loss, turning against each other", {0.5, 0.965, 0.0}, "000000ff",
      {{"horizontalAlignment", "CENTER"}, {"verticalAlignment", "TOP"}, {"textHeight", "0.045"}});
  scene.addAxes();
  scene.end();
  return scene;
}

}  // namespace examples
