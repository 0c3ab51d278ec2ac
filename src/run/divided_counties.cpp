#include "run/divided_counties.h"

#include <algorithm>
#include <iterator>

namespace tovak::run {
namespace {

constexpr std::int64_t kUnitsPerSecond = 100000;

/// An angle in hundred thousandths of a second.
constexpr std::int64_t units(std::int64_t degrees, std::int64_t minutes, std::int64_t hundredThousandths) {
  return (degrees * 60 + minutes) * 60 * kUnitsPerSecond + hundredThousandths;
}

struct ZoneBelow {
  std::int16_t county;  ///< the first, northernmost zone
  std::int16_t zone;
  std::int64_t limit;  ///< the zone ends below this latitude
};

/// The zones of one county from south to north.
constexpr ZoneBelow kZones[] = {
    {8, 9, units(48, 1, 12 * kUnitsPerSecond)},
    {16, 17, units(46, 48, 15 * kUnitsPerSecond)},
    {22, 23, units(47, 53, 0)},
    {39, 40, units(47, 30, 0)},
    {49, 50, units(48, 59, 0)},
    {80, 82, units(47, 15, 0)},
    {80, 81, units(47, 50, 0)},
};

}  // namespace

bool isDividedCounty(std::int16_t code) {
  return std::ranges::find(kZones, code, &ZoneBelow::county) != std::end(kZones);
}

std::int16_t zoneAtLatitude(std::int16_t code, const text::SplitAngle& latitude) {
  const std::int64_t magnitude = units(latitude.degrees, latitude.minutes, latitude.hundredThousandths);
  for (const ZoneBelow& entry : kZones) {
    if (entry.county == code && (latitude.negative || magnitude < entry.limit)) return entry.zone;
  }
  return code;
}

}  // namespace tovak::run
