#include "engine/conversion_pair.h"

#include <cmath>

namespace tovak::engine {
namespace {

constexpr AreaServed kAreaInRadians = {.south = kAreaServed.south * kRadiansPerDegree,
                                       .north = kAreaServed.north * kRadiansPerDegree,
                                       .west = kAreaServed.west * kRadiansPerDegree,
                                       .east = kAreaServed.east * kRadiansPerDegree};

// About a quarter of a meridian. Further off, the inverse Mercator goes round the earth again: a northing too large by
// a whole meridian would give the right latitude.
constexpr double kFarthest = 10'000'000.0;

// In radians: 36 seconds of arc. The shifts in the area served stay below 3 seconds.
constexpr double kLargestShift = 0.01 * kRadiansPerDegree;

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
  geographic = side.projection->unproject(plane);
  return isFinite(geographic) ? checkArea(geographic) : side.projection->takeError();
}

Error toTargetDatum(const ConversionPair& pair, Geographic& geographic) {
  if (pair.shift == nullptr) return Error::none;
  const bool fromNad27 = pair.source.system->datum == Datum::nad27;
  const Geographic before = geographic;
  geographic = fromNad27 ? pair.shift->toNad83(before) : pair.shift->toNad27(before);
  if (!isFinite(geographic)) return pair.shift->takeError();
  const bool tooLarge = std::fabs(geographic.latitude - before.latitude) > kLargestShift ||
                        std::fabs(geographic.longitude - before.longitude) > kLargestShift;
  return tooLarge ? Error::shiftTooLarge : checkArea(geographic);
}

Error fromGeographic(const Side& side, const Geographic& geographic, Point& point,
                     std::optional<GridFactors>* factors) {
  if (factors != nullptr) factors->reset();
  if (side.projection == nullptr) {
    point.northing = geographic.latitude * kDegreesPerRadian;
    point.easting = geographic.longitude * kDegreesPerRadian;
    return Error::none;
  }
  const PlanePoint plane =
      factors == nullptr ? side.projection->project(geographic) : side.projection->project(geographic, *factors);
  if (!isFinite(plane)) return side.projection->takeError();
  point.northing = run::convertLength(plane.northing, run::LengthUnit::metres, side.unit);
  point.easting = run::convertLength(plane.easting, run::LengthUnit::metres, side.unit);
  return Error::none;
}

void changeUnit(const ConversionPair& pair, Point& point) {
  if (pair.source.projection == nullptr) return;
  point.northing = run::convertLength(point.northing, pair.source.unit, pair.target.unit);
  point.easting = run::convertLength(point.easting, pair.source.unit, pair.target.unit);
}

/// Between two different systems.
Error convertPosition(const ConversionPair& pair, Point& point, std::optional<GridFactors>* factors) {
  Geographic geographic;
  Error error = toGeographic(pair.source, point, geographic);
  if (error == Error::none) error = toTargetDatum(pair, geographic);
  if (error == Error::none) error = fromGeographic(pair.target, geographic, point, factors);
  return error;
}

/// Within one system. Latitude and longitude are needed only for the check of the area and for the factors.
Error convertUnit(const ConversionPair& pair, Point& point, std::optional<GridFactors>* factors) {
  if (factors != nullptr || !pair.served.holds(point.northing, point.easting)) {
    Geographic geographic;
    Error error = toGeographic(pair.source, point, geographic);
    Point projected;
    if (error == Error::none && factors != nullptr) error = fromGeographic(pair.target, geographic, projected, factors);
    if (error != Error::none) return error;
  }
  changeUnit(pair, point);
  return Error::none;
}

}  // namespace

void findShortcut(ConversionPair& pair) {
  const Side& side = pair.source;
  if (side.system != pair.target.system || side.projection == nullptr) return;
  const PlaneRectangle metres = rectangleServed(*side.projection);
  const auto inUnit = [&](double length) { return run::convertLength(length, run::LengthUnit::metres, side.unit); };
  pair.served = {.south = inUnit(metres.south),
                 .north = inUnit(metres.north),
                 .west = inUnit(metres.west),
                 .east = inUnit(metres.east)};
}

Error convertPoint(const ConversionPair& pair, Point& point, std::optional<GridFactors>* factors) {
  if (!isFinite(point)) return Error::notComputed;
  // Blank columns read as 0, which a system with a nearby origin would accept as a place.
  const bool isPlane = pair.source.projection != nullptr;
  if (isPlane && point.northing == 0.0 && point.easting == 0.0) return Error::noCoordinates;
  if (!isPlane) point.easting = -std::fabs(point.easting);
  const bool oneSystem = pair.source.system == pair.target.system;
  const Error error = oneSystem ? convertUnit(pair, point, factors) : convertPosition(pair, point, factors);
  if (error != Error::none) return error;
  point.elevation = run::convertLength(point.elevation, pair.source.unit, pair.target.unit);
  return isFinite(point) ? Error::none : Error::notComputed;
}

}  // namespace tovak::engine
