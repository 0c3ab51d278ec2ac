/// Writing Geopak command files: one "STO POI" command a point.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats {

/// A writer of commands with easting (X) in front of northing (Y). Numbers are in the run's accuracy, an elevation of 0
/// included. Feature code and description are left out when they are empty. A description stands between double quotes
/// as it is, quotes of its own included.
std::unique_ptr<run::PointWriter> makeGeopakXyWriter(const run::TargetContext& context);

/// The same commands with northing (N) in front of easting (E).
std::unique_ptr<run::PointWriter> makeGeopakNeWriter(const run::TargetContext& context);

}  // namespace tovak::formats
