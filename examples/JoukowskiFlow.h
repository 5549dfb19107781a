#pragma once

#include <complex>
#include <vector>

namespace examples {

/// Plane potential flow about a Joukowski aerofoil of unit chord in a stream of
/// unit speed: the flow about a circle with circulation, mapped by
/// z = zeta + 1 / zeta. The circulation is the one that makes the flow leave the
/// trailing edge smoothly (Kutta's condition). Source: Milne-Thomson,
/// "Theoretical Aerodynamics", chapters 6 and 7.
///
/// Places are those of a frame in which the stream comes along the real axis and
/// the aerofoil is turned about its quarter chord point, the origin.
class JoukowskiFlow {
 public:
  using Complex = std::complex<double>;

  struct Sample {
    Complex place;
    double speed;
  };

  /// sinOfLift is the sine of the angle between the stream and the direction
  /// without lift; the circulation is proportional to it.
  explicit JoukowskiFlow(double sinOfLift);

  /// Along the surface from the trailing edge over the upper side and back along
  /// the lower side; the trailing edge comes first and last.
  std::vector<Sample> surface(int count) const;
  /// The streamline that begins at a place outside the aerofoil, in steps of
  /// equal length.
  std::vector<Sample> streamline(Complex start, double stepLength, int steps) const;

  /// Bernoulli's pressure above that of the stream, over the stream's dynamic pressure.
  static double pressureCoefficient(double speed) { return 1.0 - speed * speed; }

 private:
  Complex toPlace(Complex zeta) const;
  Complex toZeta(Complex place) const;
  Complex velocityAboutCircle(Complex zeta) const;
  Complex direction(Complex zeta) const;
  double speedAt(Complex zeta) const;

  Complex _center{-0.10, 0.05};
  double _radius;
  double _trailingAngle;
  double _leadingEdge;
  double _chord;
  double _incidence;
  double _circulation;
};

}  // namespace examples
