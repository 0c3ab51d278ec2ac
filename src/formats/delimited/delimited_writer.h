/// Writing delimited point files.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "run/formats.h"

namespace tovak::formats {

/// A writer of the layout in the run's `targetDelimited`, headed by the layout's header line when it is to be included.
///
/// Numbers echo the precision of the source's elevation, northing and easting too. A height of 0 is an empty field.
std::unique_ptr<run::PointWriter> makeDelimitedWriter(const run::TargetContext& context);

/// The same writer, headed by the datum line that WayPoints+ files begin with.
std::unique_ptr<run::PointWriter> makeWayPointsPlusWriter(const run::TargetContext& context);

/// The header line as a target file begins with it: without its last character, normally the delimiter behind the last
/// name. Nothing when the layout includes none.
std::optional<std::string> delimitedHeader(const run::DelimitedFormat& format);

/// The line that the writer makes of one converted point.
std::string delimitedLine(const run::RunSettings& settings, const run::PointRecord& point);

}  // namespace tovak::formats
