#include "engine/conformal_factors.h"

#include <cmath>
#include <complex>
#include <numbers>

namespace tovak::engine {
namespace {

double eccentricityOf(double flattening) {
  return std::sqrt(flattening * (2.0 - flattening));
}

/// By how much the isometric latitude is less on the ellipsoid than on a sphere: the eccentricity times the inverse
/// hyperbolic tangent, whose series is exact to 1e-14 for the earth's ellipsoids and much cheaper than a logarithm.
double isometricLack(double sine, double eccentricity) {
  const double part = eccentricity * sine;
  const double square = part * part;
  const double series = (1.0 / 3.0 + square * (1.0 / 5.0)) + square * square * (1.0 / 7.0 + square * (1.0 / 9.0));
  return eccentricity * part * (1.0 + square * series);
}

struct Parallel {
  Parallel(double latitude, double eccentricity) {
    const double sine = std::sin(latitude);
    const double cosine = std::cos(latitude);
    isometric = std::log((1.0 + sine) / cosine) - isometricLack(sine, eccentricity);
    radius = cosine / std::sqrt(1.0 - eccentricity * eccentricity * sine * sine);
  }
  double isometric;  ///< isometric latitude
  double radius;     ///< where that of the equator is 1
};

double coneConstant(const LambertFactors::Zone& zone, const Parallel& first, const Parallel& second) {
  if (first.isometric == second.isometric) return std::sin(zone.firstParallel);
  return std::log(first.radius / second.radius) / (second.isometric - first.isometric);
}

}  // namespace

LambertFactors::LambertFactors(const Zone& zone, double flattening)
    : eccentricity_(eccentricityOf(flattening)),
      centralMeridian_(std::remainder(zone.centralMeridian, 2.0 * std::numbers::pi)) {
  const Parallel first(zone.firstParallel, eccentricity_);
  cone_ = coneConstant(zone, first, Parallel(zone.secondParallel, eccentricity_));
  scale_ = zone.scale * first.radius * std::exp(cone_ * first.isometric);
}

GridFactors LambertFactors::at(const Geographic& point) const {
  const Parallel parallel(point.latitude, eccentricity_);
  return {.convergence = cone_ * (point.longitude - centralMeridian_) * kDegreesPerRadian,
          .scale = scale_ * std::exp(-cone_ * parallel.isometric) / parallel.radius};
}

TransverseMercatorFactors::TransverseMercatorFactors(const Zone& zone, double flattening)
    : eccentricity_(eccentricityOf(flattening)), centralMeridian_(zone.centralMeridian) {
  const double n = flattening / (2.0 - flattening);
  const double meridian = (1.0 + n * n / 4.0) / (1.0 + n);  // its length, where the equator's is 1
  scale_ = zone.scale * meridian;
  series_ = {2.0 * n * (1.0 / 2.0 + n * (-2.0 / 3.0 + n * 5.0 / 16.0)), 4.0 * n * n * (13.0 / 48.0 - n * 3.0 / 5.0),
             6.0 * n * n * n * 61.0 / 240.0};
}

// First the sphere of conformal latitudes, then the series that leads from its projection to the ellipsoid's. All the
// angles of the sphere are met as their sines and cosines only, and no logarithm of the latitude is needed: tangent and
// secant of the conformal latitude are hyperbolic functions of the isometric latitude.
GridFactors TransverseMercatorFactors::at(const Geographic& point) const {
  using Complex = std::complex<double>;
  const double sinLatitude = std::sin(point.latitude);
  const double cosLatitude = std::cos(point.latitude);
  const double sinLongitude = std::sin(point.longitude - centralMeridian_);
  const double cosLongitude = std::cos(point.longitude - centralMeridian_);
  // Hyperbolic sine and cosine of the lack, which is less than 0.007 and needs no more terms.
  const double lack = isometricLack(sinLatitude, eccentricity_);
  const double square = lack * lack;
  const double hyperbolicSine = lack * (1.0 + square * (1.0 / 6.0));
  const double hyperbolicCosine = 1.0 + 0.5 * square * (1.0 + square * (1.0 / 12.0));
  // Tangent and secant, times the cosine of the latitude.
  const double tangent = sinLatitude * hyperbolicCosine - hyperbolicSine;
  const double secant = hyperbolicCosine - sinLatitude * hyperbolicSine;

  // Twice the cosine of twice the sphere's northing and easting as one complex number.
  const double x = cosLatitude * cosLongitude;
  const double y = cosLatitude * sinLongitude;
  const double perSquare = 1.0 / (tangent * tangent + x * x);
  const double north = (x * x - tangent * tangent) * perSquare;
  const double east = 1.0 + 2.0 * y * y * perSquare;
  const double across = 4.0 * x * y * tangent * secant * perSquare * perSquare;
  const Complex twice(2.0 * north * east, -2.0 * across);
  const Complex second = series_[1] + twice * series_[2];
  const Complex first = series_[0] + twice * second - series_[2];
  const Complex derivative = 1.0 + 0.5 * twice * first - second;

  // The derivative's angle is less than 0.006 and needs no arc tangent; that of the sphere is found meanwhile.
  const double slope = derivative.imag() / derivative.real();
  const double slopeSquare = slope * slope;
  const double turn = slope * (1.0 - slopeSquare * (1.0 / 3.0));
  const double length = derivative.real() * (1.0 + slopeSquare * (0.5 - 0.125 * slopeSquare));
  const double onSphere = std::atan(sinLongitude * tangent / (cosLongitude * secant));
  const double curvature = 1.0 - eccentricity_ * eccentricity_ * sinLatitude * sinLatitude;
  return {.convergence = (onSphere - turn) * kDegreesPerRadian,
          .scale = scale_ * std::sqrt(curvature * perSquare) * length};
}

}  // namespace tovak::engine
