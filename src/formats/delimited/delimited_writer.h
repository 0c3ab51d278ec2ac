/// Writing delimited point files.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "run/formats.h"

namespace tovak::formats::delimited {

/// A writer of the layout in the run's `targetDelimited`, headed by the layout's header line when it is to be included.
///
/// All numbers, northing and easting included, have the precision of the source's elevation. A height of 0 is an empty
/// field.
std::unique_ptr<run::PointWriter> makeDelimitedWriter(const run::TargetContext& context);

/// The same writer, headed by the datum line that WayPoints+ files begin with.
std::unique_ptr<run::PointWriter> makeWayPointsPlusWriter(const run::TargetContext& context);

/// The writer's numbers of a point, those that the layout has.
void delimitedFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures);

/// The header line as a target file begins with it: without its last character, normally the delimiter after the last
/// name. Nothing when the layout has no header.
std::optional<std::string> delimitedHeader(const run::DelimitedFormat& format);

/// The line that the writer makes of one converted point.
std::string delimitedLine(const run::RunSettings& settings, const run::PointRecord& point);

}  // namespace tovak::formats::delimited
