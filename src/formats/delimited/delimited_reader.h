/// Reading delimited point files: one point a line, fields separated by one character.
#pragma once

#include <memory>
#include <string_view>

#include "run/formats.h"

namespace tovak::formats {

/// A reader of the layout in the run's `sourceDelimited`.
///
/// Lines without the delimiter are passed over, and so are points whose northing or easting (latitude or longitude) is
/// 0, as it is for every line of headings. A field is a number by its leading number. `DelimitedLine` separates them.
std::unique_ptr<run::PointReader> makeDelimitedReader(const run::SourceContext& context);

/// A text field as a point keeps it: what stands between the first two double quotes (or behind the only one) as it is,
/// or without quotes the text without outer blanks.
std::string_view cleanTextField(std::string_view text);

}  // namespace tovak::formats
