/// Reading the fixed-column point files of the agency Vesko: one point a line, at most 80 columns.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::survey {

/// A reader of both layouts, in the columns that the agency gives its fields:
///
///     ordinary    1-4 number, 5-34 description, 35-45 easting, 46-55 northing, 56-57 code, 58-65 elevation,
///                 65-80 trailer group, in it 67-69 PH, 70-73 OW, 77-80 OD
///     alignment   1-4 number, 5-34 description, in it 10-22 station and 23-34 RA, 35-45 easting, 46-55 northing,
///                 56-59 point type (in the PH field), 73-76 OW, 77-80 OD
///
/// The first point determines the layout of the whole file: a station in its columns 10-22 makes an alignment file. A
/// shorter line reads as if padded with blanks. Numbers are leading numbers, with blanks inside the field ignored; 0
/// when there is none. A northing of 1,000,000 or more takes column 56 as well and leaves only column 57 to the code.
///
/// Blank lines and lines that begin with "$" are passed over. A file without any other line is refused. A line with a
/// tab, after which columns are unknown, ends the source early.
std::unique_ptr<run::PointReader> makeEightyColumnReader(const run::SourceContext& context);

}  // namespace tovak::formats::survey
