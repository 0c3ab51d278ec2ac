#include "formats/agency/divided_counties.h"

#include <algorithm>
#include <iterator>

namespace tovak::formats {
namespace {

struct ZoneBelow {
  std::int16_t county;  ///< the first, northernmost zone
  std::int16_t zone;
  std::int64_t limit;  ///< DDMMSS; the zone ends below it
};

/// The zones of one county from south to north.
constexpr ZoneBelow kZones[] = {
    {8, 9, 480112},   {16, 17, 464815}, {22, 23, 475300}, {39, 40, 473000},
    {49, 50, 485900}, {80, 82, 471500}, {80, 81, 475000},
};

constexpr std::int64_t kUnitsPerSecond = 100000;

/// DDMMSS in hundred thousandths of a second.
std::int64_t packed(const text::SplitAngle& angle) {
  const std::int64_t minutes = angle.degrees * 100 + angle.minutes;
  const std::int64_t magnitude = minutes * 100 * kUnitsPerSecond + angle.hundredThousandths;
  return angle.negative ? -magnitude : magnitude;
}

}  // namespace

bool isDividedCounty(std::int16_t code) {
  return std::ranges::find(kZones, code, &ZoneBelow::county) != std::end(kZones);
}

std::int16_t zoneAtLatitude(std::int16_t code, const text::SplitAngle& latitude) {
  for (const ZoneBelow& entry : kZones) {
    if (entry.county == code && packed(latitude) < entry.limit * kUnitsPerSecond) return entry.zone;
  }
  return code;
}

}  // namespace tovak::formats
