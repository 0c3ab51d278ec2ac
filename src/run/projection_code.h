/// What the program itself knows about the engine's projection codes: their classes and twins, nothing of geodesy.
#pragma once

#include <cstdint>

namespace tovak::run {

inline constexpr std::int16_t kLatLongNad83 = 0;
inline constexpr std::int16_t kUtmNad83 = 1;
inline constexpr std::int16_t kLatLongNad27 = 103;
inline constexpr std::int16_t kUserDefinedProject = 263;
inline constexpr std::int16_t kLastProjectionCode = 268;

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

}  // namespace tovak::run
