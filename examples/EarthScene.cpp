#include "colors.h"
#include "scenes.h"
#include "shapes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <numbers>
#include <string>
#include <vector>

namespace examples {
namespace {

using std::numbers::pi;

/// Lengths in the scene are in radii of the Earth, its axis is z.
constexpr double EARTH_RADIUS_KM = 6371.0;

/// The speed of P waves below a radius, in km/s: a polynomial in radius / radius
/// of the Earth.
struct Layer {
  double outerRadiusKm;
  double coefficients[4];
};

/// From the centre to the surface; the crust is left out, and above 220 km the
/// mantle answers alike in all directions. Source: Dziewonski and Anderson,
/// "Preliminary reference Earth model", Physics of the Earth and Planetary
/// Interiors 25 (1981), table 1.
constexpr Layer LAYERS[] = {
    {1221.5, {11.2622, 0.0, -6.3640, 0.0}},         {3480.0, {11.0487, -4.0362, 4.8023, -13.5732}},
    {3630.0, {15.3891, -5.3181, 5.5242, -2.5514}},  {5600.0, {24.9520, -40.4673, 51.4832, -26.6419}},
    {5701.0, {29.2766, -23.6027, 5.5242, -2.5514}}, {5771.0, {19.0957, -9.8672, 0.0, 0.0}},
    {5971.0, {39.7027, -32.6166, 0.0, 0.0}},        {6151.0, {20.3926, -12.2569, 0.0, 0.0}},
    {EARTH_RADIUS_KM, {4.1875, 3.9382, 0.0, 0.0}},
};
constexpr double INNER_CORE = 1221.5 / EARTH_RADIUS_KM;
constexpr double CORE = 3480.0 / EARTH_RADIUS_KM;
constexpr double TRANSITION = 5701.0 / EARTH_RADIUS_KM;

double speedIn(const Layer& layer, double radius) {
  const auto& c = layer.coefficients;
  return c[0] + radius * (c[1] + radius * (c[2] + radius * c[3]));
}

double speedAt(double radius) {
  const auto* const layer = std::find_if(
      std::begin(LAYERS), std::end(LAYERS) - 1,
      [&](const Layer& candidate) { return radius * EARTH_RADIUS_KM <= candidate.outerRadiusKm; });
  return speedIn(*layer, radius);
}

/// A point of the section, a hair in front of it: what is drawn on the section
/// must not lie in it.
Point inSection(double radius, double angle, double before) {
  return {radius * std::sin(angle), -before, radius * std::cos(angle)};
}

/// The half disc on either side of the axis, with a ring of points on both sides
/// of each boundary.
Geometry makeSection() {
  constexpr int RINGS_PER_LAYER = 9;
  constexpr int AROUND = 145;
  Geometry section;
  section.name = "section";
  DataArray speed{"P wave speed", true, {}};
  double inner = 0.0;
  for (const Layer& layer : LAYERS) {
    const double outer = layer.outerRadiusKm / EARTH_RADIUS_KM;
    addSheet(section, RINGS_PER_LAYER, AROUND, [&](double row, double column) {
      const double radius = inner + (outer - inner) * row;
      speed.values.push_back(speedIn(layer, radius));
      return inSection(radius, 2.0 * pi * column, 0.0);
    });
    inner = outer;
  }
  section.arrays.push_back(speed);
  return section;
}

/// The way of a wave down from the surface: where it is, and when, in seconds.
struct Sample {
  double radius;
  double angle;
  double time;
};

/// Follows a ray from the surface down to its deepest point. The Earth is cut
/// into thin shells with one speed each, in which rays are straight; the ray
/// parameter, radius x sine of the angle to the vertical / speed, stays the same
/// across them (Snell's law).
std::vector<Sample> followDown(double parameter) {
  constexpr int SHELLS = 1274;
  std::vector<Sample> way{{1.0, 0.0, 0.0}};
  for (int shell = 0; shell < SHELLS; ++shell) {
    const double outer = 1.0 - static_cast<double>(shell) / SHELLS;
    const double inner = 1.0 - static_cast<double>(shell + 1) / SHELLS;
    const double speed = speedAt((outer + inner) / 2.0);
    // How near to the centre the straight ray would come.
    const double nearest = parameter * speed;
    if (nearest >= outer) {
      break;
    }
    const double end = std::max(inner, nearest);
    const double turned =
        std::acos(nearest / outer) - (end > 0.0 ? std::acos(std::min(1.0, nearest / end)) : 0.0);
    const double length = std::sqrt(outer * outer - nearest * nearest) -
                          std::sqrt(std::max(0.0, end * end - nearest * nearest));
    const Sample& last = way.back();
    way.push_back({end, last.angle + turned, last.time + length * EARTH_RADIUS_KM / speed});
    if (nearest >= inner) {
      break;
    }
  }
  return way;
}

/// The whole ray, up again as it came down.
std::vector<Sample> followRay(double parameter) {
  std::vector<Sample> way = followDown(parameter);
  const Sample deepest = way.back();
  for (std::size_t i = way.size() - 1; i-- > 0;) {
    const Sample down = way[i];
    way.push_back({down.radius, 2.0 * deepest.angle - down.angle, 2.0 * deepest.time - down.time});
  }
  return way;
}

void addRay(Geometry& rays, DataArray& minutes, const std::vector<Sample>& way, double side) {
  constexpr std::size_t SAMPLES_PER_POINT = 8;
  std::vector<Point> line;
  for (std::size_t i = 0; i < way.size(); ++i) {
    if (i % SAMPLES_PER_POINT == 0 || i + 1 == way.size()) {
      line.push_back(inSection(way[i].radius, side * way[i].angle, 0.006));
      minutes.values.push_back(way[i].time / 60.0);
    }
  }
  addLine(rays, line);
}

/// Rays that leave the earthquake, on top, to both sides at equal steps of their
/// angle.
Geometry makeRays() {
  constexpr int RAYS = 33;
  constexpr double STEEPEST = 1.5;
  constexpr double FLATTEST = 58.0;
  Geometry rays;
  rays.name = "rays";
  DataArray minutes{"time", true, {}};
  for (int ray = 0; ray < RAYS; ++ray) {
    const double degrees = STEEPEST + (FLATTEST - STEEPEST) * ray / (RAYS - 1);
    const std::vector<Sample> way = followRay(std::sin(degrees * pi / 180.0) / speedAt(1.0));
    for (const double side : {1.0, -1.0}) {
      addRay(rays, minutes, way, side);
    }
  }
  rays.arrays.push_back(minutes);
  return rays;
}

Geometry makeBoundaries() {
  constexpr int STEPS = 180;
  Geometry circles;
  circles.name = "boundaries";
  for (const double radius : {INNER_CORE, CORE, TRANSITION, 1.0}) {
    std::vector<Point> circle;
    for (int step = 0; step <= STEPS; ++step) {
      circle.push_back(inSection(radius, 2.0 * pi * step / STEPS, 0.004));
    }
    addLine(circles, circle);
  }
  return circles;
}

Geometry makeGlobe(const std::string& name) {
  return makeSheet(name, 37, 73, [](double row, double column) {
    const double distance = pi * row;
    const double longitude = 2.0 * pi * column;
    return Point{std::sin(distance) * std::cos(longitude), std::sin(distance) * std::sin(longitude),
                 std::cos(distance)};
  });
}

void addLabel(SceneWriter& scene, const std::string& text, double radius, double degrees) {
  scene.addAnnotation(text, inSection(radius, degrees * pi / 180.0, 0.02), "101828ff",
                      {{"mode", "MODEL"},
                       {"horizontalAlignment", "CENTER"},
                       {"verticalAlignment", "CENTER"},
                       {"textHeight", "0.036"}});
}

}  // namespace

SceneWriter makeEarth() {
  SceneWriter scene;
  scene.beginItem("scene", "Waves of an earthquake", {{"background", "ffffffff"}});
  scene.addView({2.4, -4.5, 1.9}, {-0.06, 0.0, 0.03}, {0.0, 0.0, 1.0}, false, 1.14);
  scene.addGradient("ccd6e3ff", "ffffffff", "TOP_BOTTOM");
  scene.addLight(0.9, 30.0, 35.0, "ffffffff");
  scene.addClip({0.0, 0.0, 0.0}, {0.0, 1.0, 0.0});
  scene.beginItem("assembly", "Earth");
  scene.addGeometry(
      makeGlobe("far half"),
      {{"faceColor", "6f8fb0ff"}, {"lineColor", "48627cff"}, {"showEdges", "true"}, {"specular", "0.3"}});
  scene.beginItem("assembly", "Section");
  scene.addColormap("P wave speed", 7.0, 14.0, "P wave speed,&#10;km/s",
                    blend({"fdf3dcff", "f3d59aff", "e3a76fff", "c9785aff", "9a4f52ff"}, 57));
  scene.addLegend({0.85, 0.28, 0.0}, {0.14, 0.56, 0.0}, "000000ff", {{"numberOfLabels", "8"}});
  // Colours that are to be read off must not depend on the light.
  scene.addGeometry(makeSection(),
                    {{"ignoreClip", "true"}, {"ambient", "1"}, {"diffuse", "0"}, {"specular", "0"}});
  scene.addGeometry(makeBoundaries(),
                    {{"ignoreClip", "true"}, {"lineColor", "40302cff"}, {"lineWidth", "1.5"}});
  scene.end();
  scene.beginItem("assembly", "Waves");
  scene.addColormap("time", 0.0, 20.0, "Minutes since the earthquake",
                    blend({"06243fff", "0b5c7dff", "12a0a0ff", "58d68dff"}, 65));
  scene.addLegend({0.03, 0.04, 0.0}, {0.29, 0.13, 0.0}, "000000ff",
                  {{"orientation", "HORIZONTAL"}, {"numberOfLabels", "5"}});
  scene.addGeometry(makeRays(), {{"ignoreClip", "true"}, {"lineWidth", "1.5"}});
  scene.end();
  // Last: what is seen through it is there when it is drawn.
  scene.addGeometry(makeGlobe("near half"),
                    {{"ignoreClip", "true"}, {"faceColor", "5a9be640"}, {"specular", "0.4"}});
  scene.end();
  addLabel(scene, "inner core", 0.0, 0.0);
  addLabel(scene, "outer&#10;core", 0.37, 97.0);
  addLabel(scene, "mantle", 0.70, -112.0);
  addLabel(scene, "shadow&#10;zone", 0.78, 121.0);
  scene.addAnnotation("P waves of an earthquake", {0.03, 0.96, 0.0}, "000000ff",
                      {{"verticalAlignment", "TOP"}, {"textHeight", "0.05"}});
  scene.end();
  return scene;
}

}  // namespace examples
