/// "Geodetics Special": a list of geodetic stations by latitude and longitude becomes a table with their state plane
/// and county coordinates, for the agency's station database.
///
/// A source line holds, with commas between them and without quotes: latitude and longitude as counts of 0.00001 degree
/// (4512345 is 45.12345 degrees), station, county, county zone word (may be empty), a text that is not used, and the
/// order, which is the rest of the line. Lines at the head of the file that do not begin with a digit are titles. The
/// first line of the target names its columns. A station that cannot be computed leaves a line that says why.
#pragma once

#include "run/formats.h"

namespace tovak::formats::agency {

bool exportGeodeticsSpecial(const run::ExportContext& context);

}  // namespace tovak::formats::agency
