/// The records of the NGS Blue Book (the Input Formats of the National Geodetic Survey Data Base,
/// volume I) that hold a station's position and heights. Every record has 80 columns.
#pragma once

#include <cstdint>
#include <string_view>

#include "run/projection_code.h"

namespace tovak::formats::survey::blue_book {

inline constexpr std::string_view kHeightCode = "*86*";

/// The code of the position records of one side: geographic positions or grid coordinates.
constexpr std::string_view positionCode(std::int16_t projectionCode) {
  return run::isLatLong(projectionCode) ? "*80*" : "*81*";
}

}  // namespace tovak::formats::survey::blue_book
