/// Reading a projection text, the definition of one side of a conversion.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "run/length_unit.h"

namespace tovak::engine {

struct ProjectionText {
  std::int16_t code = 0;
  run::LengthUnit unit = run::LengthUnit::usSurveyFeet;  ///< of the coordinates, and of the elevation for every system
};

/// Reads texts such as "2M", "3 (feet)" or "Projection = 0    (Latitude and Longitude : NAD83)": everything up to the
/// first "=" is skipped, then blanks; a number, rounded to the nearest whole, is the code; after optional blanks an "M"
/// of either case stands for metres; then comes the end, a blank or "(", and the rest is ignored. Nothing for any other
/// text, or for a number that does not fit 16 bits.
std::optional<ProjectionText> readProjectionText(std::string_view text);

}  // namespace tovak::engine
