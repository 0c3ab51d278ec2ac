/// Writing delimited point files.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats {

/// A writer of the layout in the run's `targetDelimited`, headed by the layout's header line when it is to be included.
///
/// Numbers echo the precision of the source's elevation, northing and easting too. A height of 0 is an empty field.
std::unique_ptr<run::PointWriter> makeDelimitedWriter(const run::TargetContext& context);

/// The same writer, headed by the datum line that WayPoints+ files begin with.
std::unique_ptr<run::PointWriter> makeWayPointsPlusWriter(const run::TargetContext& context);

}  // namespace tovak::formats
