/// Writing Geodimeter raw files: one label and its value a line.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::survey {

/// A writer of control points: point number (5), description (4), northing (37), easting (38) and elevation (39), the
/// numbers in the run's accuracy. Texts are written unchanged.
std::unique_ptr<run::PointWriter> makeGeodimeterControlWriter(const run::TargetContext& context);

/// A writer of alignment points: station (80), northing (37), easting (38) and RA field (64). A point without station
/// or RA field has no line for it.
std::unique_ptr<run::PointWriter> makeGeodimeterAlignmentWriter(const run::TargetContext& context);

}  // namespace tovak::formats::survey
