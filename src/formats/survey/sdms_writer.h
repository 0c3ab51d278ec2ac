/// Writing SDMS files: tagged survey data in sections.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::survey {

/// A writer of one section a point, under the section line that the point was read with, or "AC:CP".
///
/// Coordinates and heights have the run's precision, latitude and longitude the form DDMMSS.sssss, west positive.
/// Descriptions and comments are not written. Where the units of source and target differ, station and offset are
/// scaled: the station becomes stationing of the target's units, 1+234.567 in metres or 12+34.57 in feet, the offset a
/// number with six decimals. A text that is not a station or not an offset stays as it is.
std::unique_ptr<run::PointWriter> makeSdmsWriter(const run::TargetContext& context);

}  // namespace tovak::formats::survey
