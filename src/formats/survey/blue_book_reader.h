/// Reading NGS Blue Book files: a position record for each station, and the height record that may follow it.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::survey {

/// A reader of the *80* records (latitude/longitude sources) or the *81* records (grid sources), whichever the source
/// projection asks for, and of the first *86* record after each of them. Other records are passed over and counted.
///
/// Numbers have a decimal point that is implied between two columns. Blanks before a number and after its last decimal
/// are ignored; anything else that is not a digit or leading sign, a blank between digits included, stops the run:
/// "Invalid *81* Record Found". So does a blank coordinate; a blank height counts as missing. The heights of the file
/// are metres and come out in the unit of the source side, geoid and ellipsoid height with three decimals.
///
/// Grid coordinates are taken easting first. Latitudes and longitudes are packed degrees, minutes and seconds.
std::unique_ptr<run::PointReader> makeBlueBookReader(const run::SourceContext& context);

}  // namespace tovak::formats::survey
