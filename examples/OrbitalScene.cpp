#include "colors.h"
#include "scenes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>

namespace examples {
namespace {

constexpr int POINTS = 14000;
constexpr double BOHR_RADIUS = 0.052917721;
/// Nanometres, as all lengths here; the wave function is as good as zero beyond.
constexpr double EXTENT = 2.2;

/// The wave function of a hydrogen atom's electron in the state 4d(z2), that is
/// n = 4, l = 2, m = 0, up to a factor: rho^2 L(rho) exp(-rho / 2) P2(cos theta)
/// with rho = r / (2 Bohr radii) and the associated Laguerre polynomial
/// L = 6 - rho. Source: Pauling and Wilson, "Introduction to Quantum Mechanics",
/// section 21.
double waveFunction(const Point& place) {
  const double r2 = place[0] * place[0] + place[1] * place[1] + place[2] * place[2];
  const double rho = std::sqrt(r2) / (2.0 * BOHR_RADIUS);
  const double legendre = r2 > 0.0 ? (3.0 * place[2] * place[2] / r2 - 1.0) / 2.0 : 0.0;
  return rho * rho * (6.0 - rho) * std::exp(-rho / 2.0) * legendre;
}

/// Numbers in [0, 1) from the generator's bits: the standard fixes the bits of
/// the generator, but not the results of its distributions.
class Uniform {
 public:
  double operator()() { return static_cast<double>(_bits()) / 4294967296.0; }

 private:
  std::mt19937 _bits{1926};
};

/// The largest density, looked for along the axis where it lies.
double largestDensity() {
  constexpr int STEPS = 2200;
  double largest = 0.0;
  for (int step = 1; step < STEPS; ++step) {
    const double psi = waveFunction({0.0, 0.0, EXTENT * step / STEPS});
    largest = std::max(largest, psi * psi);
  }
  return largest;
}

/// Places drawn with the density psi^2, by rejection.
Geometry makeCloud() {
  Geometry cloud;
  cloud.name = "electron";
  Uniform uniform;
  const double largest = largestDensity();
  std::vector<double> values;
  std::vector<std::int32_t> cell;
  while (cloud.points.size() < POINTS) {
    Point place;
    for (double& coordinate : place) {
      coordinate = EXTENT * (2.0 * uniform() - 1.0);
    }
    const double psi = waveFunction(place);
    if (uniform() * largest < psi * psi) {
      cell.push_back(static_cast<std::int32_t>(cloud.points.size()));
      cloud.points.push_back(place);
      values.push_back(psi / std::sqrt(largest));
    }
  }
  Geometry::addCell(cloud.verts, cell);
  cloud.arrays.push_back({"psi", true, values});
  return cloud;
}

}  // namespace

SceneWriter makeOrbital() {
  SceneWriter scene;
  scene.beginItem("scene", "Hydrogen, state 4d(z2)", {{"background", "05070dff"}});
  scene.addView({4.5, -4.5, 1.5}, {0.0, 0.0, 0.0}, {0.9, 0.9, 0.75}, true, 1.8);
  scene.addGradient("1d2740ff", "04060cff", "RADIAL");
  scene.beginItem("assembly", "Atom");
  scene.addColormap("psi", -0.6, 0.6, "Wave function / largest value",
                    blend({"ffd166ff", "ef6f3cff", "3a3f5aff", "2f9ecfff", "9be7ffff"}, 65));
  scene.addLegend(
      {0.86, 0.25, 0.0}, {0.13, 0.52, 0.0}, "d8e0f0ff",
      {{"title", "Wave function&#10;/ largest"}, {"numberOfLabels", "7"}, {"numberFormat", "%.1f"}});
  scene.addGeometry(makeCloud(), {{"pointSize", "2"}});
  scene.end();
  scene.addAnnotation("Hydrogen, 4d(z\u00b2)", {0.03, 0.96, 0.0}, "d8e0f0ff",
                      {{"verticalAlignment", "TOP"}, {"textHeight", "0.05"}});
  scene.end();
  return scene;
}

}  // namespace examples
