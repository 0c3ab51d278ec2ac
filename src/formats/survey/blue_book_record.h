/// The records of the NGS Blue Book (the Input Formats of the National Geodetic Survey Data Base,
/// volume I) that hold a station's position and heights. Every record has 80 columns.
#pragma once

#include <cstdint>
#include <string_view>

#include "run/length_unit.h"
#include "run/projection_code.h"
#include "run/run_settings.h"

namespace tovak::formats::blue_book {

inline constexpr std::string_view kHeightCode = "*86*";

/// The code of the position records of one side: geographic positions or grid coordinates.
constexpr std::string_view positionCode(std::int16_t projectionCode) {
  return run::isLatLong(projectionCode) ? "*80*" : "*81*";
}

/// The unit of a side's heights. The records themselves hold metres.
inline run::LengthUnit heightUnit(const run::SideSettings& side) {
  return side.metres ? run::LengthUnit::metres : run::LengthUnit::usSurveyFeet;
}

}  // namespace tovak::formats::blue_book
