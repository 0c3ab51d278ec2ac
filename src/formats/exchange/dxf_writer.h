/// Writing DXF of release 12 (AC1009), in ASCII: points and their texts for drawings.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::exchange {

/// A writer of a POINT on the layer POINTS for each point, with easting, northing and elevation (0 where there is none)
/// in the target's unit and the run's accuracy, a TEXT with its number on the layer NUMBERS, up and right of it, and
/// one with its description on the layer DESCRIPTIONS below. Texts are 1 metre or 3 feet high. The identification line
/// is a comment at the beginning. The target has to be plane coordinates.
std::unique_ptr<run::PointWriter> makeDxfWriter(const run::TargetContext& context);

}  // namespace tovak::formats::exchange
