#include "engine/conversion_pair.h"

#include <cmath>

namespace tovak::engine {
namespace {

constexpr AreaServed kAreaInRadians = {.south = kAreaServed.south * kRadiansPerDegree,
                                       .north = kAreaServed.north * kRadiansPerDegree,
                                       .west = kAreaServed.west * kRadiansPerDegree,
                                       .east = kAreaServed.east * kRadiansPerDegree};

// About a quarter of a meridian. Further off the inverse Mercator comes round the earth again: a northing that is a
// whole meridian too large would give the latitude of the right one.
constexpr double kFarthest = 10'000'000.0;

bool isFinite(const Point& point) {
  return std::isfinite(point.northing) && std::isfinite(point.easting) && std::isfinite(point.elevation);
}

Error checkReach(const PlanePoint& point) {
  if (std::fabs(point.northing) > kFarthest) return Error::latitudeOutside;
  return std::fabs(point.easting) > kFarthest ? Error::longitudeOutside : Error::none;
}

Error checkArea(const Geographic& point) {
  if (point.latitude < kAreaInRadians.south || point.latitude > kAreaInRadians.north) return Error::latitudeOutside;
  if (point.longitude < kAreaInRadians.west || point.longitude > kAreaInRadians.east) return Error::longitudeOutside;
  return Error::none;
}

Error toGeographic(const Side& side, const Point& point, Geographic& geographic) {
  if (side.projection == nullptr) {
    geographic = {.latitude = point.northing * kRadiansPerDegree, .longitude = point.easting * kRadiansPerDegree};
    return checkArea(geographic);
  }
  const PlanePoint plane = {.northing = run::convertLength(point.northing, side.unit, run::LengthUnit::metres),
                            .easting = run::convertLength(point.easting, side.unit, run::LengthUnit::metres)};
  if (const Error error = checkReach(plane); error != Error::none) return error;
  geographic = unproject(side.projection, plane);
  return isFinite(geographic) ? checkArea(geographic) : takeError(side.projection);
}

Error toTargetDatum(const ConversionPair& pair, Geographic& geographic) {
  if (pair.shift == nullptr) return Error::none;
  const bool fromNad27 = pair.source.system->datum == Datum::nad27;
  geographic = fromNad27 ? pair.shift->toNad83(geographic) : pair.shift->toNad27(geographic);
  return isFinite(geographic) ? Error::none : pair.shift->takeError();
}

Error fromGeographic(const Side& side, const Geographic& geographic, Point& point) {
  if (side.projection == nullptr) {
    point.northing = geographic.latitude * kDegreesPerRadian;
    point.easting = geographic.longitude * kDegreesPerRadian;
    return Error::none;
  }
  const PlanePoint plane = project(side.projection, geographic);
  if (!isFinite(plane)) return takeError(side.projection);
  point.northing = run::convertLength(plane.northing, run::LengthUnit::metres, side.unit);
  point.easting = run::convertLength(plane.easting, run::LengthUnit::metres, side.unit);
  return Error::none;
}

void changeUnit(const ConversionPair& pair, Point& point) {
  if (pair.source.projection == nullptr) return;
  point.northing = run::convertLength(point.northing, pair.source.unit, pair.target.unit);
  point.easting = run::convertLength(point.easting, pair.source.unit, pair.target.unit);
}

}  // namespace

Error convertPoint(const ConversionPair& pair, Point& point, std::optional<GridFactors>& factors) {
  if (!isFinite(point)) return Error::notComputed;
  if (pair.source.projection == nullptr) point.easting = -std::fabs(point.easting);

  Geographic geographic;
  Error error = toGeographic(pair.source, point, geographic);
  if (error != Error::none) return error;
  if (pair.source.system == pair.target.system) {
    changeUnit(pair, point);
  } else {
    error = toTargetDatum(pair, geographic);
    if (error == Error::none) error = fromGeographic(pair.target, geographic, point);
    if (error != Error::none) return error;
  }
  factors = pair.factors == nullptr ? std::nullopt : factorsAt(*pair.factors, geographic);
  point.elevation = run::convertLength(point.elevation, pair.source.unit, pair.target.unit);
  return isFinite(point) ? Error::none : Error::notComputed;
}

}  // namespace tovak::engine
