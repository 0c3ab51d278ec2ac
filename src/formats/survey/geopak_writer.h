/// Writing Geopak command files: one "STO POI" command a point.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::survey {

/// A writer of commands with easting (X) before northing (Y). Numbers are in the run's accuracy, an elevation of 0
/// included. Feature code and description are left out when they are empty. A description is put between double quotes
/// unchanged, even if it contains quotes.
std::unique_ptr<run::PointWriter> makeGeopakXyWriter(const run::TargetContext& context);

/// The same commands with northing (N) before easting (E).
std::unique_ptr<run::PointWriter> makeGeopakNeWriter(const run::TargetContext& context);

}  // namespace tovak::formats::survey
