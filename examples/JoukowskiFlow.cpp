#include "JoukowskiFlow.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace examples {
namespace {

/// Where the trailing edge lies in the plane of the circle, and in the plane of
/// the aerofoil before it is scaled.
constexpr double TRAILING_ZETA = 1.0;
constexpr double TRAILING_EDGE = 2.0;
/// At the trailing edge itself the speed is 0 / 0: it is taken at this angle
/// beside it.
constexpr double NEAR_TRAILING_EDGE = 1e-3;

JoukowskiFlow::Complex slopeOfMap(JoukowskiFlow::Complex zeta) {
  return 1.0 - 1.0 / (zeta * zeta);
}

}  // namespace

JoukowskiFlow::JoukowskiFlow(double sinOfLift)
    : _radius(std::abs(TRAILING_ZETA - _center)),
      _trailingAngle(std::arg(TRAILING_ZETA - _center)),
      _leadingEdge(0.0),
      _chord(1.0),
      _incidence(std::asin(sinOfLift) + _trailingAngle),
      _circulation(4.0 * std::numbers::pi * _radius * sinOfLift) {
  const Complex leadingZeta = _center - std::polar(_radius, -_trailingAngle);
  _leadingEdge = (leadingZeta + 1.0 / leadingZeta).real();
  _chord = TRAILING_EDGE - _leadingEdge;
}

JoukowskiFlow::Complex JoukowskiFlow::toPlace(Complex zeta) const {
  const Complex scaled = (zeta + 1.0 / zeta - _leadingEdge) / _chord - 0.25;
  return scaled * std::polar(1.0, -_incidence);
}

JoukowskiFlow::Complex JoukowskiFlow::toZeta(Complex place) const {
  const Complex z = (place * std::polar(1.0, _incidence) + 0.25) * _chord + _leadingEdge;
  const Complex root = std::sqrt(z * z - 4.0);
  const Complex first = (z + root) / 2.0;
  const Complex second = (z - root) / 2.0;
  return std::abs(first - _center) > std::abs(second - _center) ? first : second;
}

JoukowskiFlow::Complex JoukowskiFlow::velocityAboutCircle(Complex zeta) const {
  const Complex fromCenter = zeta - _center;
  const Complex turn = std::polar(1.0, _incidence);
  return 1.0 / turn - turn * _radius * _radius / (fromCenter * fromCenter) +
         Complex(0.0, _circulation / (2.0 * std::numbers::pi)) / fromCenter;
}

double JoukowskiFlow::speedAt(Complex zeta) const {
  return std::abs(velocityAboutCircle(zeta) / slopeOfMap(zeta));
}

std::vector<JoukowskiFlow::Sample> JoukowskiFlow::surface(int count) const {
  std::vector<Sample> samples;
  for (int i = 0; i < count; ++i) {
    const double turn = 2.0 * std::numbers::pi * i / (count - 1);
    const double besideEdge =
        std::clamp(turn, NEAR_TRAILING_EDGE, 2.0 * std::numbers::pi - NEAR_TRAILING_EDGE);
    samples.push_back({toPlace(_center + std::polar(_radius, _trailingAngle + turn)),
                       speedAt(_center + std::polar(_radius, _trailingAngle + besideEdge))});
  }
  return samples;
}

/// By how much zeta changes while the place moves by a unit of length.
JoukowskiFlow::Complex JoukowskiFlow::direction(Complex zeta) const {
  const Complex velocity = std::conj(velocityAboutCircle(zeta));
  return velocity / std::abs(velocity) * _chord / std::max(std::abs(slopeOfMap(zeta)), 0.05);
}

std::vector<JoukowskiFlow::Sample> JoukowskiFlow::streamline(Complex start, double stepLength,
                                                             int steps) const {
  Complex zeta = toZeta(start);
  std::vector<Sample> samples{{toPlace(zeta), speedAt(zeta)}};
  for (int step = 0; step < steps; ++step) {
    // The classical method of Runge and Kutta.
    const Complex k1 = direction(zeta);
    const Complex k2 = direction(zeta + 0.5 * stepLength * k1);
    const Complex k3 = direction(zeta + 0.5 * stepLength * k2);
    const Complex k4 = direction(zeta + stepLength * k3);
    zeta += stepLength / 6.0 * (k1 + 2.0 * k2 + 2.0 * k3 + k4);
    samples.push_back({toPlace(zeta), speedAt(zeta)});
  }
  return samples;
}

}  // namespace examples
