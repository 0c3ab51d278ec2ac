/// Reading control stations from the map sheets of the agency's geodetic database.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats {

/// A reader of the sheets in the run's `geodeticCsv`, one behind the other; of the source file when it names none.
///
/// The first line settles the columns. Lines with "NAME" anywhere, in a station's name too, are taken for headings and
/// passed over, and so are rows whose chosen latitude or longitude is not above zero. Where the target lies in one
/// zone, so are the rows of other zones. The point gets the station identifier as number, the name as description,
/// latitude and longitude as they stand (west positive), and the chosen elevation, 0 without one. The elevation's
/// decimals say nothing of the precision of a control station's position and are not passed on.
std::unique_ptr<run::PointReader> makeGeodeticCsvReader(const run::SourceContext& context);

}  // namespace tovak::formats
