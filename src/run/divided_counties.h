/// The counties that the agency divides into two or three zones, and the parallels that divide them.
#pragma once

#include <cstdint>

#include "text/angle.h"

namespace tovak::run {

/// Whether a code is that of a divided county's first zone, which is used for the county when no zone is named.
bool isDividedCounty(std::int16_t code);

/// The zone of a divided county, given by its first zone's code, in which a latitude lies; other codes as they are.
std::int16_t zoneAtLatitude(std::int16_t code, const text::SplitAngle& latitude);

}  // namespace tovak::run
