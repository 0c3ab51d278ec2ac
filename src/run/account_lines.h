/// What is reported when a run is over.
#pragma once

#include <string>
#include <vector>

#include "run/conversion_run.h"

namespace tovak::run {

/// The account of every record of the source, for example "12 records read: 9 converted, 1 skipped (1 by the engine;
/// first in line 7: ...), 2 passed over (1 without delimiter, first in line 1; 1 with a zero coordinate, first in line
/// 3)", followed by further remarks, one a line, with the doubts last. When the target did not get the points, it says
/// what the target file now is instead of how many were converted; that the person stopped
/// the run comes first.
std::vector<std::string> accountLines(const RunResult& result);

}  // namespace tovak::run
