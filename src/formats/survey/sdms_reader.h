/// Reading SDMS files: tagged survey data, a two-letter tag, a colon and a value on every line, in sections that each
/// begin with a line "AC:".
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::survey {

/// A reader of one point a section. Outer blanks and the letter case of a tag are ignored; empty lines are skipped.
///
/// The lines before the first "AC:" line are the file's header. It, and the sections "AC:EQ" (equipment) and "AC:PR"
/// (project), are passed on as other lines, except header lines that a target writes itself.
///
/// A source in latitude and longitude takes "LT" and "LG", any other "YC" and "XC"; where those are zero or missing,
/// "YY" and "XX" take their place, as "ZZ" does for "ZC". Lines of other tags, and lines without a tag, become the
/// point's further fields.
///
/// A section without both coordinates is not a point. It is passed over like one with a zero coordinate, since a
/// coordinate of 0 could convert into a position that looks right. It is passed on as other lines unless it holds a
/// coordinate, height, station or offset, which would end up in the target unconverted.
///
/// The check fails when no section holds both coordinates. A section longer than 1 MiB stops the run.
std::unique_ptr<run::PointReader> makeSdmsReader(const run::SourceContext& context);

}  // namespace tovak::formats::survey
