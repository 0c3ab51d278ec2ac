/// Writing DeLorme import files: symbols with a label on a map.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::gps {

/// A writer of the line "Begin Symbol", a line "latitude,longitude,label,SYMBOL" for each point, and the line "End".
/// Angles are decimal degrees with seven decimals, west negative. The label is the description, else the number, with
/// blanks in place of its commas; the symbol is `delorme.symbol`. The target has to be latitude and longitude on NAD83.
std::unique_ptr<run::PointWriter> makeDelormeWriter(const run::TargetContext& context);

}  // namespace tovak::formats::gps
