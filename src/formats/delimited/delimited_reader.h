/// Reading delimited point files: one point a line, fields separated by one character.
#pragma once

#include <memory>
#include <string_view>

#include "run/formats.h"

namespace tovak::formats::delimited {

/// A reader of the layout in the run's `sourceDelimited`.
///
/// Lines without the delimiter are passed over, and so are points whose northing or easting (latitude or longitude) is
/// 0, which is true of every heading line. The number of a field is its leading number. `DelimitedLine` separates them.
std::unique_ptr<run::PointReader> makeDelimitedReader(const run::SourceContext& context);

/// A text field as a point keeps it: the text between the first two double quotes (or after the only one) unchanged,
/// or, without quotes, the text without outer blanks.
std::string_view cleanTextField(std::string_view text);

}  // namespace tovak::formats::delimited
