/// Writing Maptech export files (MXF): labels on a map, one a line.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::gps {

/// A writer of lines `latitude, longitude, "name", "number", "comment", colour, symbol`, which the Maptech source reads
/// back. Angles are decimal degrees with seven decimals, west negative. The texts lose their double quotes, and blanks
/// take the place of their commas, at which readers split even inside quotes. Colour and symbol are `maptech.color` and
/// `maptech.symbol`. The target has to be latitude and longitude on NAD83.
std::unique_ptr<run::PointWriter> makeMaptechWriter(const run::TargetContext& context);

}  // namespace tovak::formats::gps
