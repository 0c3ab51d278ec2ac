/// Writing Trimble waypoint files: a line for each point that the office software of a GPS receiver imports.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::gps {

/// A writer of easting, northing (longitude, latitude in decimal degrees for a latitude/longitude target), height and
/// name, separated by commas; numbers in the run's accuracy, decimal degrees with seven decimals. A height of 0 is an
/// unknown one: 300 metres or 1000 feet stand for it.
///
/// The name is the field that `waypoints.name` prefers, else the number, the description, the station, whichever is not
/// empty first. It loses the double quotes at its ends, is cut to 11 characters, and stands in quotes of its own.
std::unique_ptr<run::PointWriter> makeTrimbleWaypointWriter(const run::TargetContext& context);

}  // namespace tovak::formats::gps
