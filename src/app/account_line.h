/// The line with which a batch run accounts for every record of its source.
#pragma once

#include <string>

#include "run/record_counts.h"

namespace tovak::app {

/// For example "12 records read: 9 converted, 1 skipped (1 by the engine; first in line 7: ...), 2 passed over (1
/// without delimiter, first in line 1; 1 with a zero coordinate, first in line 3)".
std::string accountLine(const run::RecordCounts& counts);

}  // namespace tovak::app
