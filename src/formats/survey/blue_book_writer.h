/// Writing NGS Blue Book files: one position record for each station.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats {

/// A writer of *80* records for a latitude/longitude target, else of *81* records.
///
/// The sequence number grows by 10 and begins again at 000000 behind 999990. Point numbers have four characters, and
/// names are cut to the 30 of their field. Elevations are metres with two decimals at most, whatever the target's unit;
/// an elevation of 0 is left blank. A grid coordinate that is too long for its field ends the line: the fields behind
/// it stand in their columns of the next one, and the station cannot be read back.
///
/// Grid coordinates stand northing first, although `makeBlueBookReader` takes the first one as the easting.
std::unique_ptr<run::PointWriter> makeBlueBookWriter(const run::TargetContext& context);

}  // namespace tovak::formats
