/// Writing NGS Blue Book files: one position record for each station.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::survey {

/// A writer of *80* records for a latitude/longitude target, else of *81* records.
///
/// The sequence number grows by 10 and begins again at 000000 after 999990. Point numbers have four characters, and
/// names are cut to the 30 of their field. Everything is in metres whatever the target's unit, elevations with two
/// decimals at most; an elevation of 0 is left blank. A grid coordinate that is too long for its field ends the line:
/// the fields after it are put in their columns of the next line, and the station cannot be read back.
///
/// Grid coordinates stand northing first, although `makeBlueBookReader` takes the first one as the easting.
std::unique_ptr<run::PointWriter> makeBlueBookWriter(const run::TargetContext& context);

/// The writer's numbers of a point, lengths in metres and with the decimal point that the file leaves out, angles with
/// blanks between degrees, minutes and seconds.
void blueBookFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures);

}  // namespace tovak::formats::survey
