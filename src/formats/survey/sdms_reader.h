/// Reading SDMS files: tagged survey data, a two-letter tag, a colon and a value on every line, in sections that each
/// begin with a line "AC:".
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats {

/// A reader of one point a section. Outer blanks and the letter case of a tag count for nothing; empty lines are
/// skipped.
///
/// What stands before the first "AC:" line is the file's header. It, and the sections "AC:EQ" (equipment) and "AC:PR"
/// (project), go to the context's `otherLines`; of the header not the lines that a target has of its own.
///
/// A source in latitude and longitude takes "LT" and "LG", any other "YC" and "XC"; where those are zero or missing,
/// "YY" and "XX" take their place, as "ZZ" does for "ZC". Lines of other tags, and lines without a tag, become the
/// point's further fields.
///
/// A section without both coordinates is no point: it is passed over as one with a zero coordinate, since a coordinate
/// of 0 can still lie near enough to convert into a position that looks right. It goes to `otherLines` too, unless it
/// holds a coordinate, height, station or offset, which would stand in the target unconverted.
///
/// The check fails when no section holds both coordinates. A section that outgrows 1 MiB stops the run.
std::unique_ptr<run::PointReader> makeSdmsReader(const run::SourceContext& context);

}  // namespace tovak::formats
