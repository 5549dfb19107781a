#include "JoukowskiFlow.h"
#include "colors.h"
#include "scenes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace examples {
namespace {

// The wing, in root chords: x goes with the stream, y to the right, z up.
constexpr double HALF_SPAN = 3.0;
constexpr double TIP_CHORD = 0.40;
constexpr double SWEEP = 0.36;
constexpr double DIHEDRAL = 0.07;
/// Sine of the angle of lift at the root.
constexpr double ROOT_LIFT = 0.14;

constexpr int SECTIONS = 81;
constexpr int POINTS_AROUND = 121;

/// The wing at one place of its span, from -1 (left tip) to 1 (right tip). Each
/// section sees plane flow, at the angle that gives the wing the elliptic
/// distribution of circulation, which has the least induced drag (Prandtl).
struct Section {
  explicit Section(double place)
      : span(place),
        chord(1.0 - (1.0 - TIP_CHORD) * std::abs(span)),
        flow(ROOT_LIFT * std::sqrt(1.0 - span * span) / chord) {}

  Point toWing(JoukowskiFlow::Complex place) const {
    const double distance = HALF_SPAN * std::abs(span);
    return {SWEEP * distance + chord * place.real(), HALF_SPAN * span,
            DIHEDRAL * distance + chord * place.imag()};
  }

  double span;
  double chord;
  JoukowskiFlow flow;
};

std::int32_t pointOf(int section, int around) {
  return static_cast<std::int32_t>(section * POINTS_AROUND + around);
}

void addSkin(Geometry& wing, std::vector<double>& pressure) {
  for (int s = 0; s < SECTIONS; ++s) {
    // Narrow sections at the tips, where the load falls steeply.
    const Section section(-std::cos(std::numbers::pi * s / (SECTIONS - 1)));
    for (const auto& sample : section.flow.surface(POINTS_AROUND)) {
      wing.points.push_back(section.toWing(sample.place));
      pressure.push_back(JoukowskiFlow::pressureCoefficient(sample.speed));
    }
  }
  for (int s = 0; s + 1 < SECTIONS; ++s) {
    for (int i = 0; i + 1 < POINTS_AROUND; ++i) {
      Geometry::addCell(wing.polys,
                        {pointOf(s, i), pointOf(s + 1, i), pointOf(s + 1, i + 1), pointOf(s, i + 1)});
    }
  }
}

/// Closes a tip with strips between upper and lower side. They have points of
/// their own, so that the edge of the tip stays sharp.
void addTip(Geometry& wing, std::vector<double>& pressure, int section, bool isRight) {
  const auto first = static_cast<std::int32_t>(wing.points.size());
  for (int i = 0; i < POINTS_AROUND; ++i) {
    const auto source = static_cast<std::size_t>(pointOf(section, i));
    wing.points.push_back(Point(wing.points[source]));
    pressure.push_back(double(pressure[source]));
  }
  for (int i = 0; i < POINTS_AROUND / 2; ++i) {
    const std::int32_t upper = first + i;
    const std::int32_t lower = first + POINTS_AROUND - 1 - i;
    std::vector<std::int32_t> cell{upper, lower, lower - 1, upper + 1};
    if (i + 1 == POINTS_AROUND / 2) {
      cell.pop_back();
    }
    if (isRight) {
      std::reverse(cell.begin(), cell.end());
    }
    Geometry::addCell(wing.polys, cell);
  }
}

Geometry makeSkin() {
  Geometry wing;
  wing.name = "skin";
  std::vector<double> pressure;
  addSkin(wing, pressure);
  addTip(wing, pressure, 0, false);
  addTip(wing, pressure, SECTIONS - 1, true);
  wing.arrays.push_back({"Cp", true, pressure});
  return wing;
}

Geometry makeStreamlines() {
  constexpr int STATIONS = 9;
  constexpr int LINES = 9;
  constexpr double START = -1.2;
  constexpr double STEP = 0.03;
  Geometry lines;
  lines.name = "streamlines";
  std::vector<double> speed;
  for (int station = 0; station < STATIONS; ++station) {
    const Section section(0.92 * (2.0 * station / (STATIONS - 1) - 1.0));
    for (int line = 0; line < LINES; ++line) {
      const JoukowskiFlow::Complex start{START, -0.34 + 0.07 * line};
      std::vector<std::int32_t> cell;
      for (const auto& sample : section.flow.streamline(start, STEP, 125)) {
        cell.push_back(static_cast<std::int32_t>(lines.points.size()));
        lines.points.push_back(section.toWing(sample.place));
        speed.push_back(sample.speed);
      }
      Geometry::addCell(lines.lines, cell);
    }
  }
  lines.arrays.push_back({"speed", true, speed});
  return lines;
}

}  // namespace

SceneWriter makeWing() {
  SceneWriter scene;
  scene.beginItem("scene", "Wing in a uniform stream", {{"background", "ffffffff"}});
  scene.addView({-5.44, -5.85, 5.05}, {1.16, -0.93, -0.03}, {0.0, 0.0, 1.0}, true, 2.0);
  scene.addGradient("bccbddff", "f7f9fbff", "TOP_BOTTOM");
  scene.addLight(0.95, -20.0, 40.0, "ffffffff");
  scene.addLight(0.35, 60.0, 15.0, "fff0dcff");
  scene.beginItem("assembly", "Flow");
  scene.beginItem("assembly", "Wing");
  scene.addColormap("pressure", -1.5, 1.0, "Pressure coefficient", spectralColors());
  scene.addLegend({0.87, 0.38, 0.0}, {0.12, 0.52, 0.0}, "000000ff",
                  {{"title", "Pressure&#10;coefficient"}, {"numberOfLabels", "6"}, {"numberFormat", "%.1f"}});
  scene.addGeometry(makeSkin());
  scene.end();
  scene.beginItem("assembly", "Air");
  scene.addColormap("speed", 0.7, 1.4, "Speed / speed of the stream", sequentialColors());
  scene.addLegend({0.28, 0.03, 0.0}, {0.44, 0.13, 0.0}, "000000ff",
                  {{"orientation", "HORIZONTAL"}, {"numberOfLabels", "8"}, {"numberFormat", "%.1f"}});
  scene.addGeometry(makeStreamlines(), {{"lineColor", "303030e8"}, {"lineWidth", "2"}});
  scene.end();
  scene.end();
  scene.addAxes();
  scene.end();
  return scene;
}

}  // namespace examples
