/// Positions on a datum's ellipsoid and on the plane of a map projection.
#pragma once

#include <cmath>
#include <numbers>

namespace tovak::engine {

inline constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;
inline constexpr double kDegreesPerRadian = 180.0 / std::numbers::pi;

/// Radians, north and east positive.
struct Geographic {
  double latitude = 0.0;
  double longitude = 0.0;
};

/// Metres.
struct PlanePoint {
  double northing = 0.0;
  double easting = 0.0;
};

inline bool isFinite(const Geographic& point) {
  return std::isfinite(point.latitude) && std::isfinite(point.longitude);
}

inline bool isFinite(const PlanePoint& point) {
  return std::isfinite(point.northing) && std::isfinite(point.easting);
}

}  // namespace tovak::engine
