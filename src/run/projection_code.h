/// The engine's projection codes as the program knows them: their classes and twins, but no geodesy.
#pragma once

#include <cstdint>

namespace tovak::run {

/// The code for a projection box without a number.
inline constexpr std::int16_t kNoProjection = -1;
inline constexpr std::int16_t kLatLongNad83 = 0;
inline constexpr std::int16_t kUtmNad83 = 1;
inline constexpr std::int16_t kLatLongNad27 = 103;
inline constexpr std::int16_t kUserDefinedProject = 263;
inline constexpr std::int16_t kLastProjectionCode = 268;
inline constexpr std::int16_t kStatePlaneNorth = 2;
inline constexpr std::int16_t kStatePlaneCentral = 3;
inline constexpr std::int16_t kStatePlaneSouth = 4;
/// County zones by their codes on NAD83.
inline constexpr std::int16_t kFirstCountyZone = 5;
inline constexpr std::int16_t kLastCountyZone = 102;
/// Systems from here on lie outside the state: points of other county zones do not go into them.
inline constexpr std::int16_t kFirstNeighbouringZone = 264;
/// Between a system on NAD83 and its twin on NAD27.
inline constexpr std::int16_t kTwinDistance = 103;

constexpr bool isLatLong(std::int16_t code) {
  return code == kLatLongNad83 || code == kLatLongNad27;
}
constexpr bool isUtm(std::int16_t code) {
  return code == kUtmNad83 || code == 104;
}
constexpr bool isStatePlane(std::int16_t code) {
  return (code >= 2 && code <= 4) || (code >= 105 && code <= 107);
}
constexpr bool isCountyOrProject(std::int16_t code) {
  return (code >= 5 && code <= 102) || (code >= 108 && code <= 263) || code == 268;
}
/// Codes 264 to 267 belong to none of the classes above, but 264 and 265 are on NAD27.
constexpr bool isNad27(std::int16_t code) {
  return code >= 103 && code <= 265;
}

/// The twin of a code on the other datum, or the same code where it is on that datum already or has no twin. The codes
/// of the neighbouring UTM zones are in the opposite order: they were added last.
constexpr std::int16_t twinOn(bool nad27, std::int16_t code) {
  constexpr std::int16_t kNeighbourDistance = 2;
  if (isNad27(code) == nad27 || code > kFirstNeighbouringZone + 3) return code;
  const bool neighbour = code >= kFirstNeighbouringZone;
  const int toNad27 = neighbour ? -kNeighbourDistance : kTwinDistance;
  const int twin = nad27 ? code + toNad27 : code - toNad27;
  // The codes between the zones on NAD27 and the neighbours have no twin.
  const bool ofZones = nad27 || neighbour || twin < kLatLongNad27;
  return static_cast<std::int16_t>(ofZones ? twin : code);
}

}  // namespace tovak::run
