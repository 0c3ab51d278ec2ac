/// How target formats without a notation of their own write the numbers of a point.
#pragma once

#include "run/point_figures.h"

namespace tovak::formats {

/// Points carry an elevation of 0 where their source has none.
bool hasElevation(const run::PointRecord& point);

/// Decimal degrees and no elevation.
void mapFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures);

/// Decimal degrees to about a millimetre, and an elevation only where there is one.
void earthFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures);

/// Decimal degrees or lengths, and a height in the place of an unknown one.
void waypointFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures);

/// Lengths, whatever the system.
void lengthFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures);
/// The same with an elevation only where there is one.
void knownLengthFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures);
/// The same without an elevation.
void planeFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures);

/// Packed angles, west positive, or lengths; an elevation only where there is one.
void taggedFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures);

}  // namespace tovak::formats
