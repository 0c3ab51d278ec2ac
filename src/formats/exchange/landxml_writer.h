/// Writing LandXML 1.2: coordinate geometry points for road and survey design software.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::exchange {

/// A writer of a CgPoint for each point, on one line: northing, easting and, where the point has one, the elevation, in
/// the target's unit and the run's accuracy; number (name), description and feature code (code). `pntSurv` is
/// "reference" for all, since sources do not tell what kind of point theirs are. Units and the coordinate system, with
/// its EPSG number where it has one and the identification line as its description, stand above. The file carries the
/// day of the run and no time of the day. The target has to be plane coordinates.
std::unique_ptr<run::PointWriter> makeLandXmlWriter(const run::TargetContext& context);

}  // namespace tovak::formats::exchange
