#include "engine/conformal_projections.h"

#include <cmath>
#include <complex>
#include <numbers>

namespace tovak::engine {
namespace {

using Complex = std::complex<double>;

double eccentricityOf(double flattening) {
  return std::sqrt(flattening * (2.0 - flattening));
}

double thirdFlatteningOf(const Ellipsoid& ellipsoid) {
  return ellipsoid.flattening / (2.0 - ellipsoid.flattening);
}

/// How much smaller the isometric latitude is on the ellipsoid than on a sphere: the eccentricity times the inverse
/// hyperbolic tangent, whose series is exact to 1e-17 for the earth's ellipsoids and much cheaper than a logarithm.
double isometricDifference(double sine, double eccentricity) {
  const double part = eccentricity * sine;
  const double square = part * part;
  const double fourth = square * square;
  const double series =
      (1.0 / 3.0 + square * (1.0 / 5.0)) + fourth * ((1.0 / 7.0 + square * (1.0 / 9.0)) + fourth * (1.0 / 11.0));
  return eccentricity * part * (1.0 + square * series);
}

/// Clenshaw's summation of a sine series in multiples of the angle whose cosine is half of `twiceCosine`: the sum is
/// `first` times the angle's sine. That of the cosines with the same coefficients is `first` times the angle's cosine,
/// less `second`.
template <typename Number>
struct Clenshaw {
  template <std::size_t terms>
  Clenshaw(const SineSeries<terms>& series, const Number& twiceCosine) {
    for (std::size_t i = terms; i-- > 0;) {
      const Number next = series[i] + twiceCosine * first - second;
      second = first;
      first = next;
    }
  }
  Number first = 0.0;
  Number second = 0.0;
};

/// A parallel for the constants of a cone, which are differences of such figures: as exact as the machine allows.
struct Parallel {
  Parallel(long double latitude, const Ellipsoid& ellipsoid) {
    const long double flattening = ellipsoid.flattening;
    const long double square = flattening * (2.0L - flattening);
    const long double sine = std::sin(latitude);
    const long double eccentricity = std::sqrt(square);
    isometric = std::atanh(sine) - eccentricity * std::atanh(eccentricity * sine);
    radius = ellipsoid.semiMajorAxis * std::cos(latitude) / std::sqrt(1.0L - square * sine * sine);
  }
  long double isometric;  ///< isometric latitude
  long double radius;
};

long double coneConstant(const LambertConic::Zone& zone, const Parallel& first, const Parallel& second) {
  if (first.isometric == second.isometric) return std::sin(static_cast<long double>(zone.firstParallel));
  return std::log(first.radius / second.radius) / (second.isometric - first.isometric);
}

}  // namespace

LatitudeOfConformal::LatitudeOfConformal(double n)
    : series_{n * (2.0 + n * (-2.0 / 3.0 + n * (-2.0 + n * (116.0 / 45.0 + n * (26.0 / 45.0 - n * 2854.0 / 675.0))))),
              n * n * (7.0 / 3.0 + n * (-8.0 / 5.0 + n * (-227.0 / 45.0 + n * (2704.0 / 315.0 + n * 2323.0 / 945.0)))),
              n * n * n * (56.0 / 15.0 + n * (-136.0 / 35.0 + n * (-1262.0 / 105.0 + n * 73814.0 / 2835.0))),
              n * n * n * n * (4279.0 / 630.0 + n * (-332.0 / 35.0 - n * 399572.0 / 14175.0)),
              n * n * n * n * n * (4174.0 / 315.0 - n * 144838.0 / 6237.0),
              n * n * n * n * n * n * 601676.0 / 22275.0} {}

double LatitudeOfConformal::operator()(double sine, double cosine, double tangent) const {
  const Clenshaw<double> sum(series_, 2.0 - 4.0 * sine * sine);
  return std::atan(tangent) + 2.0 * sine * cosine * sum.first;
}

LambertConic::LambertConic(const Zone& zone)
    : eccentricity_(eccentricityOf(zone.ellipsoid.flattening)),
      latitude_(thirdFlatteningOf(zone.ellipsoid)),
      centralMeridian_(std::remainder(zone.origin.longitude, 2.0 * std::numbers::pi)),
      falseEasting_(zone.falseOrigin.easting) {
  const Parallel first(zone.firstParallel, zone.ellipsoid);
  const Parallel origin(zone.origin.latitude, zone.ellipsoid);
  const long double cone = coneConstant(zone, first, Parallel(zone.secondParallel, zone.ellipsoid));
  const long double radius = zone.scale * first.radius / cone;
  const long double originRadius = radius * std::exp(cone * (first.isometric - origin.isometric));
  cone_ = static_cast<double>(cone);
  perCone_ = static_cast<double>(1.0L / cone);
  isometric_ = static_cast<double>(first.isometric);
  radius_ = static_cast<double>(radius);
  scale_ = static_cast<double>(cone / zone.ellipsoid.semiMajorAxis);
  topNorthing_ = static_cast<double>(zone.falseOrigin.northing + originRadius);
}

PlanePoint LambertConic::project(const Geographic& point, GridFactors* factors) const {
  const double sine = std::sin(point.latitude);
  const double cosine = std::cos(point.latitude);
  const double isometric = std::log((1.0 + sine) / cosine) - isometricDifference(sine, eccentricity_);
  const double radius = radius_ * std::exp(cone_ * (isometric_ - isometric));
  const double convergence = cone_ * (point.longitude - centralMeridian_);
  if (factors != nullptr) {
    const double curvature = std::sqrt(1.0 - eccentricity_ * eccentricity_ * sine * sine);
    *factors = {.convergence = convergence * kDegreesPerRadian, .scale = scale_ * radius * curvature / cosine};
  }
  return {.northing = topNorthing_ - radius * std::cos(convergence),
          .easting = falseEasting_ + radius * std::sin(convergence)};
}

Geographic LambertConic::unproject(const PlanePoint& point) const {
  const double south = (topNorthing_ - point.northing) / radius_;
  const double east = (point.easting - falseEasting_) / radius_;
  const double isometric = isometric_ - 0.5 * perCone_ * std::log(south * south + east * east);
  const double root = std::exp(isometric);
  const double square = root * root;
  const double perSum = 1.0 / (square + 1.0);
  return {.latitude = latitude_((square - 1.0) * perSum, 2.0 * root * perSum, (square - 1.0) / (2.0 * root)),
          .longitude = centralMeridian_ + perCone_ * std::atan2(east, south)};
}

TransverseMercator::TransverseMercator(const Zone& zone)
    : eccentricity_(eccentricityOf(zone.ellipsoid.flattening)),
      latitude_(thirdFlatteningOf(zone.ellipsoid)),
      centralMeridian_(std::remainder(zone.origin.longitude, 2.0 * std::numbers::pi)),
      falseOrigin_(zone.falseOrigin) {
  const double n = thirdFlatteningOf(zone.ellipsoid);
  scale_ = zone.scale * (1.0 + n * n * (1.0 / 4.0 + n * n * (1.0 / 64.0 + n * n * 1.0 / 256.0))) / (1.0 + n);
  radius_ = scale_ * zone.ellipsoid.semiMajorAxis;
  forward_ = {
      n * (1.0 / 2.0 +
           n * (-2.0 / 3.0 + n * (5.0 / 16.0 + n * (41.0 / 180.0 + n * (-127.0 / 288.0 + n * 7891.0 / 37800.0))))),
      n * n * (13.0 / 48.0 + n * (-3.0 / 5.0 + n * (557.0 / 1440.0 + n * (281.0 / 630.0 - n * 1983433.0 / 1935360.0)))),
      n * n * n * (61.0 / 240.0 + n * (-103.0 / 140.0 + n * (15061.0 / 26880.0 + n * 167603.0 / 181440.0))),
      n * n * n * n * (49561.0 / 161280.0 + n * (-179.0 / 168.0 + n * 6601661.0 / 7257600.0)),
      n * n * n * n * n * (34729.0 / 80640.0 - n * 3418889.0 / 1995840.0)};
  inverse_ = {
      n * (1.0 / 2.0 +
           n * (-2.0 / 3.0 + n * (37.0 / 96.0 + n * (-1.0 / 360.0 + n * (-81.0 / 512.0 + n * 96199.0 / 604800.0))))),
      n * n * (1.0 / 48.0 + n * (1.0 / 15.0 + n * (-437.0 / 1440.0 + n * (46.0 / 105.0 - n * 1118711.0 / 3870720.0)))),
      n * n * n * (17.0 / 480.0 + n * (-37.0 / 840.0 + n * (-209.0 / 4480.0 + n * 5569.0 / 90720.0))),
      n * n * n * n * (4397.0 / 161280.0 + n * (-11.0 / 504.0 - n * 830251.0 / 7257600.0)),
      n * n * n * n * n * (4583.0 / 161280.0 - n * 108847.0 / 3991680.0)};
  for (std::size_t i = 0; i < forward_.size(); ++i) derivative_[i] = 2.0 * static_cast<double>(i + 1) * forward_[i];
  falseOrigin_.northing += falseOrigin_.northing - project(zone.origin).northing;
}

// First the sphere of conformal latitudes, then the series that leads from its projection to the ellipsoid's. The
// angles of the sphere are only needed as sines and cosines, and no logarithm of the latitude is needed: tangent and
// secant of the conformal latitude are hyperbolic functions of the isometric latitude.
PlanePoint TransverseMercator::project(const Geographic& point, GridFactors* factors) const {
  const double sinLatitude = std::sin(point.latitude);
  const double cosLatitude = std::cos(point.latitude);
  const double sinLongitude = std::sin(point.longitude - centralMeridian_);
  const double cosLongitude = std::cos(point.longitude - centralMeridian_);
  // Hyperbolic sine and cosine of the difference, which is less than 0.007 and needs no more terms.
  const double difference = isometricDifference(sinLatitude, eccentricity_);
  const double square = difference * difference;
  const double hyperbolicSine = difference * (1.0 + square * (1.0 / 6.0 + square * (1.0 / 120.0)));
  const double hyperbolicCosine = 1.0 + 0.5 * square * (1.0 + square * (1.0 / 12.0));
  // Tangent and secant, times the cosine of the latitude.
  const double tangent = sinLatitude * hyperbolicCosine - hyperbolicSine;
  const double secant = hyperbolicCosine - sinLatitude * hyperbolicSine;

  // Northing and easting on the sphere, and sine and cosine of their doubles as one complex number.
  const double x = cosLatitude * cosLongitude;
  const double y = cosLatitude * sinLongitude;
  const double perSquare = 1.0 / (tangent * tangent + x * x);
  const double north = std::atan(tangent / x);
  const double east = 0.5 * std::log((secant + y) / (secant - y));
  const double sinNorth = 2.0 * tangent * x * perSquare;
  const double cosNorth = (x * x - tangent * tangent) * perSquare;
  const double sinhEast = 2.0 * y * secant * perSquare;
  const double coshEast = 1.0 + 2.0 * y * y * perSquare;
  const Complex sine(sinNorth * coshEast, cosNorth * sinhEast);
  const Complex cosine(cosNorth * coshEast, -sinNorth * sinhEast);
  const Complex shift = sine * Clenshaw<Complex>(forward_, 2.0 * cosine).first;
  if (factors != nullptr) {
    const Clenshaw<Complex> sum(derivative_, 2.0 * cosine);
    const Complex derivative = 1.0 + cosine * sum.first - sum.second;
    const double curvature = 1.0 - eccentricity_ * eccentricity_ * sinLatitude * sinLatitude;
    const double onSphere = std::atan(sinLongitude * tangent / (cosLongitude * secant));
    *factors = {.convergence = (onSphere - std::arg(derivative)) * kDegreesPerRadian,
                .scale = scale_ * std::sqrt(curvature * perSquare * std::norm(derivative))};
  }
  return {.northing = falseOrigin_.northing + radius_ * (north + shift.real()),
          .easting = falseOrigin_.easting + radius_ * (east + shift.imag())};
}

Geographic TransverseMercator::unproject(const PlanePoint& point) const {
  const Complex onEllipsoid((point.northing - falseOrigin_.northing) / radius_,
                            (point.easting - falseOrigin_.easting) / radius_);
  const double sinNorth = std::sin(2.0 * onEllipsoid.real());
  const double cosNorth = std::cos(2.0 * onEllipsoid.real());
  const double growth = std::exp(2.0 * onEllipsoid.imag());
  const double decay = 1.0 / growth;
  const double sinhEast = 0.5 * (growth - decay);
  const double coshEast = 0.5 * (growth + decay);
  const Complex sine(sinNorth * coshEast, cosNorth * sinhEast);
  const Complex cosine(cosNorth * coshEast, -sinNorth * sinhEast);
  const Complex onSphere = onEllipsoid - sine * Clenshaw<Complex>(inverse_, 2.0 * cosine).first;

  const double sineOnSphere = std::sin(onSphere.real());
  const double cosineOnSphere = std::cos(onSphere.real());
  const double root = std::exp(onSphere.imag());
  const double sinh = 0.5 * (root - 1.0 / root);
  const double perCosh = 2.0 / (root + 1.0 / root);
  const double side = std::sqrt(sinh * sinh + cosineOnSphere * cosineOnSphere);
  return {.latitude = latitude_(sineOnSphere * perCosh, side * perCosh, sineOnSphere / side),
          .longitude = centralMeridian_ + std::atan2(sinh, cosineOnSphere)};
}

}  // namespace tovak::engine
