/// Reading Geopak print points files: printed listings of points with their features and descriptions.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats {

/// A reader of one listing.
///
/// The first line with " Station" and " Point" heads the columns, and an "X" in it puts the easting in front of the
/// northing. The line of hyphens below it places the columns: point number, two coordinates, station, elevation. Each
/// begins at a blank with a hyphen behind it, within the first 255 characters. Without columns for the coordinates, or
/// without a point, the listing is of no use.
///
/// A line that begins with eleven hyphens or blanks says more about the point above it ("Feature:", "Description:") or
/// nothing. A line that begins with "*" begins a page heading, which ends with a line that begins with eleven hyphens.
///
/// A blank number is 0. Commas separate thousands whatever the locale; other commas in a number stop the run with a
/// message that names the line.
std::unique_ptr<run::PointReader> makeGeopakReader(const run::SourceContext& context);

}  // namespace tovak::formats
