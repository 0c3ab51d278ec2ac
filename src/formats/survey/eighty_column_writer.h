/// Writing the fixed-column point files of the agency Vesko: one point a line, at most 80 columns.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::survey {

/// A writer of the layouts that `makeEightyColumnReader` describes, the alignment layout for points that were read in
/// it. The run's accuracy 0 to 3 gives three to no decimals, for elevations two at most unless they have a third; 4 and
/// 5 are the same as 3.
///
/// In the ordinary layout a field that runs past the column of the next one ends the line, and the record goes on at
/// that column of the next line. A northing with decimals does that, so only accuracies 3 to 5 keep a point on one
/// line. In the alignment layout coordinates drop decimals rather than leave their columns, and the point types "PISC"
/// and "PICS" are exchanged when one side is in metres and the other in feet.
std::unique_ptr<run::PointWriter> makeEightyColumnWriter(const run::TargetContext& context);

/// The writer's numbers of a point.
void eightyColumnFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures);

}  // namespace tovak::formats::survey
