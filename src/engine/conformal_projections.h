/// The two projections of the zones, in closed form: forward and inverse, convergence and scale factor.
#pragma once

#include <array>
#include <cstddef>

#include "engine/geographic.h"
#include "engine/grid_factors.h"

namespace tovak::engine {

/// Metres.
struct Ellipsoid {
  double semiMajorAxis = 0.0;
  double flattening = 0.0;
};

/// Coefficients of sin 2x, sin 4x and so on.
template <std::size_t terms>
using SineSeries = std::array<double, terms>;

/// Latitude from conformal latitude by the series in multiples of the latter (C. F. F. Karney, On auxiliary latitudes,
/// Survey Review 56, 2024), to the sixth order of the third flattening: exact to 1e-17.
class LatitudeOfConformal {
 public:
  /// `n` is the third flattening of the ellipsoid.
  explicit LatitudeOfConformal(double n);
  /// Radians, from sine, cosine and tangent of the conformal latitude.
  double operator()(double sine, double cosine, double tangent) const;

 private:
  SineSeries<6> series_;
};

/// The Lambert conformal conic projection (J. P. Snyder, Map Projections: A Working Manual, USGS Professional Paper
/// 1395, chapter 15).
class LambertConic {
 public:
  /// Radians and metres. With one standard parallel both are the same, and `scale` is the scale factor on it.
  struct Zone {
    Ellipsoid ellipsoid;
    Geographic origin;
    double firstParallel = 0.0;
    double secondParallel = 0.0;
    double scale = 1.0;
    PlanePoint falseOrigin;
  };
  explicit LambertConic(const Zone& zone);

  /// `factors` receives convergence and scale factor at the point; null when they are not wanted.
  PlanePoint project(const Geographic& point, GridFactors* factors = nullptr) const;
  Geographic unproject(const PlanePoint& point) const;

 private:
  double eccentricity_;
  LatitudeOfConformal latitude_;
  double centralMeridian_;
  double cone_ = 0.0;
  double perCone_ = 0.0;
  double isometric_ = 0.0;    // isometric latitude of the first parallel
  double radius_ = 0.0;       // of that parallel on the cone, metres
  double scale_ = 0.0;        // scale factor for a radius on the cone that is that of the parallel on the ellipsoid
  double topNorthing_ = 0.0;  // of the cone
  double falseEasting_ = 0.0;
};

/// The transverse Mercator projection by Krueger's series (C. F. F. Karney, Transverse Mercator with an accuracy of a
/// few nanometers, Journal of Geodesy 85, 2011) to the fifth term: what is left out is less than 1e-9 m within 15
/// degrees of the central meridian.
class TransverseMercator {
 public:
  /// Radians and metres.
  struct Zone {
    Ellipsoid ellipsoid;
    Geographic origin;
    double scale = 1.0;
    PlanePoint falseOrigin;
  };
  explicit TransverseMercator(const Zone& zone);

  /// `factors` receives convergence and scale factor at the point; null when they are not wanted.
  PlanePoint project(const Geographic& point, GridFactors* factors = nullptr) const;
  Geographic unproject(const PlanePoint& point) const;

 private:
  double eccentricity_;
  LatitudeOfConformal latitude_;
  double centralMeridian_;
  double radius_;           // of the sphere whose meridian is as long as the ellipsoid's, times the scale factor
  double scale_;            // scale factor for a sphere with the radius of the ellipsoid's equator
  PlanePoint falseOrigin_;  // at the equator
  SineSeries<5> forward_;
  SineSeries<5> inverse_;
  SineSeries<5> derivative_;  // of the forward series: cosines
};

}  // namespace tovak::engine
