/// Selections tried on the beginning of the source file.
#pragma once

#include "run/preview.h"
#include "selection/selections.h"
#include "selection/suggestions.h"

namespace tovak::selection {

/// The preview of a run into latitude and longitude on the source's own datum, whatever the target is: what it tells is
/// of the source alone.
run::Preview tryOnSource(const Selections& selections, const SuggestionTools& tools);

/// Whether all lines of a delimited file but one of headings are points, and all points of a file can be converted and
/// lie where those of their system usually do.
bool readsWell(const run::Preview& preview);

/// Whether more than half of the points lie elsewhere or are refused. A few may do so in a job that reaches across.
bool misplaced(const run::Preview& preview);

}  // namespace tovak::selection
