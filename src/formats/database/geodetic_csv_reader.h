/// Reading control stations from the map sheets of the agency's geodetic database.
#pragma once

#include <memory>
#include <optional>

#include "run/formats.h"

namespace tovak::formats::database {

/// A reader of the sheets in the run's `geodeticCsv`, one after the other; of the source file when it names none.
///
/// The first line determines the columns. Lines with "NAME" anywhere, in a station's name too, are taken for headings
/// and passed over, and so are rows whose chosen latitude or longitude is not above zero. Where the target lies in one
/// zone, so are the rows of other zones. The point gets the station identifier as number, the name as description,
/// latitude and longitude as in the sheet (west positive), and the chosen elevation, 0 without one. The elevation's
/// decimals say nothing of the precision of a control station's position and are not passed on.
std::unique_ptr<run::PointReader> makeGeodeticCsvReader(const run::SourceContext& context);

/// The message when the data set, or the county zone where there are several, has yet to be chosen.
std::optional<run::Message> missingGeodeticCsvChoice(const run::RunSettings& settings);

}  // namespace tovak::formats::database
