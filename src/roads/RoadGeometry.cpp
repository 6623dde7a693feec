#include "roads/RoadGeometry.h"

#include <cmath>

namespace zelconvert {

namespace {

/// The remainder in [0, circle). NaN for an angle that isn't finite.
double ReduceAngle(double angle, double circle) {
  const double reduced = std::fmod(angle, circle);
  return reduced < 0 ? reduced + circle : reduced + 0.0;  // never -0, which would be printed
}

/// `along` the azimuth and `aside` to its right.
AlignmentPoint Moved(const AlignmentPoint& start, double azimuth, double along, double aside) {
  const double c = std::cos(azimuth);
  const double s = std::sin(azimuth);
  return {start.north + along * c - aside * s, start.east + along * s + aside * c, start.azimuth};
}

/// Coordinates of a clothoid's curved end: x along the tangent at its straight end, y across it.
struct ClothoidEnd {
  double x = 0;
  double y = 0;
};

/// The power series of the Fresnel integrals C and S: M. Abramowitz, I. A. Stegun, Handbook of
/// Mathematical Functions (1964), 7.3.11 and 7.3.13, with pi z^2 / 2 as the angle the clothoid
/// turns through; both in one, as the real and the imaginary part of
///   length * sum over k of (i angle)^k / (k! (2 k + 1)).
/// Spirals of roads turn through less than a radian and need a dozen terms. Alternating terms
/// cancel each other, so after some ten radians the places lose their meaning; the number of terms
/// stays bounded whatever a file says.
ClothoidEnd EndOfClothoid(double length, double angle) {
  constexpr int kMaxTerms = 100;
  constexpr double kNegligible = 1e-18;
  ClothoidEnd end;
  double power = 1;  // angle^k / k!
  for (int k = 0; k < kMaxTerms && std::abs(power) > kNegligible; ++k) {
    const double term = power / (2 * k + 1);
    double& sum = k % 2 == 0 ? end.x : end.y;
    sum += k % 4 < 2 ? term : -term;
    power *= angle / (k + 1);
  }
  return {length * end.x, length * end.y};
}

}  // namespace

Turn TurnOfSignedRadius(double radius) {
  return {std::abs(radius), !(radius < 0)};
}

AlignmentPoint StraightEnd(const AlignmentPoint& start, double azimuth, double length) {
  AlignmentPoint end = Moved(start, azimuth, length, 0);
  end.azimuth = azimuth;
  return end;
}

AlignmentPoint ArcEnd(const AlignmentPoint& start, const Turn& turn, double length) {
  const double side = turn.isRight ? 1 : -1;
  const double deflection = length / turn.radius;
  // The chord: it leaves at half the deflection, which needs no difference of large coordinates
  // where a flat arc has its centre far away.
  const double half = deflection / 2;
  AlignmentPoint end =
      Moved(start, start.azimuth + side * half, 2 * turn.radius * std::sin(half), 0);
  end.azimuth = start.azimuth + side * deflection;
  return end;
}

AlignmentPoint SpiralEnd(const AlignmentPoint& start, const Turn& turn, double length,
                         bool startsAtCurve) {
  const double side = turn.isRight ? 1 : -1;
  const double deflection = length / (2 * turn.radius);
  const double azimuth = start.azimuth + side * deflection;
  const ClothoidEnd clothoid = EndOfClothoid(length, deflection);
  // From the curve the same clothoid is run backwards: its tangent is the one at the end.
  AlignmentPoint end = startsAtCurve ? Moved(start, azimuth, clothoid.x, -side * clothoid.y)
                                     : Moved(start, start.azimuth, clothoid.x, side * clothoid.y);
  end.azimuth = azimuth;
  return end;
}

double RadiansFromAngle(double angle, AngularUnit unit) {
  return angle * kPi / (FullCircle(unit) / 2);
}

double DisplayAzimuth(double radians, AngularUnit unit) {
  const double angle = FromRadians(radians, unit);
  if (unit != AngularUnit::Gon) return DegreesToDms(angle);
  const double gons = ReduceAngle(angle, FullCircle(unit));
  constexpr double kHalfOfLastDecimal = 0.000005;  // files show five
  return gons >= FullCircle(unit) - kHalfOfLastDecimal ? 0.0 : gons;
}

double DegreesToDms(double degrees) {
  constexpr double kTenthsPerMinute = 600;
  constexpr double kTenthsPerDegree = 60 * kTenthsPerMinute;
  const double tenths = std::round(ReduceAngle(degrees, 360.0) * kTenthsPerDegree);
  const double whole = std::floor(tenths / kTenthsPerDegree);
  if (whole >= 360.0) return 0.0;
  const double rest = tenths - whole * kTenthsPerDegree;
  const double minutes = std::floor(rest / kTenthsPerMinute);
  const double seconds = (rest - minutes * kTenthsPerMinute) / 10.0;
  return whole + minutes / 100.0 + seconds / 10000.0;
}

}  // namespace zelconvert
