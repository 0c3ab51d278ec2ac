/// Reading Coords.log files: the coordinate listing that a Trimble data collector prints, a header that names datum,
/// system and zone, and a block of lines for each point.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::gps {

/// A reader of the latitudes and longitudes of a listing (latitude/longitude sources), else of its northings and
/// eastings, with the three heights. Angles come out packed as degrees, minutes and seconds; a part of a single digit
/// counts as if it had a leading zero.
///
/// The header has to name NAD-83 and, for latitude/longitude and state plane sources, their system and zone: the check
/// says what is missing. A value that a block does not have is 0. A northing or easting may have commas between its
/// thousands; one that is not a number stops the run. A block without a blank line after it is not a point: the listing
/// was cut off.
std::unique_ptr<run::PointReader> makeCoordsLogReader(const run::SourceContext& context);

/// The same for crews that key the point number at the start of the description: if its first four characters begin
/// with a number above zero, they are the point number and the rest is the description.
std::unique_ptr<run::PointReader> makeCoordsLogNumberInDescriptionReader(const run::SourceContext& context);

}  // namespace tovak::formats::gps
