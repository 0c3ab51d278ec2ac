/// Convergence and scale factor in closed form, for the two projections that zones are made of.
#pragma once

#include <array>

#include "engine/geographic.h"

namespace tovak::engine {

struct GridFactors {
  /// Decimal degrees from true north to grid north, clockwise positive: positive east of the central meridian.
  double convergence = 0.0;
  /// Length on the grid for length on the ellipsoid.
  double scale = 1.0;
};

/// The Lambert conformal conic projection (J. P. Snyder, Map Projections: A Working Manual, USGS Professional Paper
/// 1395, chapter 15).
class LambertFactors {
 public:
  /// Radians. With one standard parallel both are that one, and `scale` is the scale factor on it.
  struct Zone {
    double centralMeridian = 0.0;
    double firstParallel = 0.0;
    double secondParallel = 0.0;
    double scale = 1.0;
  };
  LambertFactors(const Zone& zone, double flattening);
  GridFactors at(const Geographic& point) const;

 private:
  double eccentricity_;
  double centralMeridian_;
  double cone_;
  double scale_ = 0.0;  // the factors of the scale that are the same everywhere
};

/// The transverse Mercator projection by Krueger's series (C. F. F. Karney, Transverse Mercator with an accuracy of a
/// few nanometers, Journal of Geodesy 85, 2011) to the third order of the third flattening: what is left out is less
/// than 1e-10 of the scale within 15 degrees of the central meridian.
class TransverseMercatorFactors {
 public:
  /// Radians.
  struct Zone {
    double centralMeridian = 0.0;
    double scale = 1.0;
  };
  TransverseMercatorFactors(const Zone& zone, double flattening);
  GridFactors at(const Geographic& point) const;

 private:
  double eccentricity_;
  double centralMeridian_;
  double scale_;
  std::array<double, 3> series_;  // coefficients of the series' derivative
};

}  // namespace tovak::engine
