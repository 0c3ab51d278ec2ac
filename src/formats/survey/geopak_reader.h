/// Reading Geopak print points files: printed listings of points with their features and descriptions.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::survey {

/// A reader of one listing.
///
/// The first line with " Station" and " Point" heads the columns, and an "X" in it puts the easting before the
/// northing. The line of hyphens below it gives the columns: point number, two coordinates, station, elevation. Each
/// begins at a blank with a hyphen after it, within the first 255 characters. Without columns for the coordinates, or
/// without a point, the listing cannot be used.
///
/// A line that begins with eleven hyphens or blanks says more about the point above it ("Feature:", "Description:") or
/// nothing. A line that begins with "*" begins a page heading, which ends with a line that begins with eleven hyphens.
///
/// A blank number is 0. Commas separate thousands whatever the locale; other commas in a number stop the run with a
/// message that names the line.
std::unique_ptr<run::PointReader> makeGeopakReader(const run::SourceContext& context);

}  // namespace tovak::formats::survey
