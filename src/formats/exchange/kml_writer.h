/// Writing KML 2.2 (OGC 07-147r2): placemarks for a look in an earth viewer.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::exchange {

/// A writer of a placemark for each point, on one line, with the number as its name and the description. Longitude and
/// latitude are decimal degrees with eight decimals, the altitude is the elevation in the run's accuracy; a point
/// without an elevation has none and is clamped to the ground. The identification line is the document's description.
/// The target has to be latitude and longitude on NAD83, in metres.
std::unique_ptr<run::PointWriter> makeKmlWriter(const run::TargetContext& context);

}  // namespace tovak::formats::exchange
