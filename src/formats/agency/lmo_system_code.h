/// The system code of an LMO line: the system and unit of its point.
#pragma once

#include <cstdint>
#include <string_view>

namespace tovak::formats::agency {

/// The system of the county, whichever it is.
inline constexpr std::int16_t kCountySystem = -1;

/// Why a line is refused, in place of its system's projection code.
inline constexpr std::int16_t kCountyZoneMissing = 666;
inline constexpr std::int16_t kCountyMissing = 888;
inline constexpr std::int16_t kDatumMissing = 999;

struct LmoSystem {
  bool metres = false;
  std::string_view zoneWord;          ///< of the county, empty when the code names none
  bool namesCounty = false;           ///< the code holds "CC"
  std::int16_t code = kDatumMissing;  ///< a projection code, `kCountySystem` or `kDatumMissing`
};

/// Reads a code such as "LL", "MUTM27" or "CCN". Letter case does not matter, and parts are found anywhere in the code:
/// a leading "M" for metres; "CCN", "CCC", "CCS" or "CCL" for a zone of the county; "LL", "UTM", "SPN", "SPC" or "SPS"
/// for the system, else "CC" or nothing at all for that of the county; "27" for NAD27, except for county systems.
LmoSystem readLmoSystem(std::string_view text);

}  // namespace tovak::formats::agency
