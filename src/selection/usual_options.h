/// The options and the report as most runs have them.
#pragma once

#include "run/run_settings.h"

namespace tovak::selection {

/// Whether adjustment, accuracy, vertical datum, numbering and report are what a run has when nobody asks for anything
/// else. The report is compared with that of `atStart`. The next point number does not count: every run moves it on.
bool usualOptions(const run::RunSettings& settings, const run::RunSettings& atStart);

}  // namespace tovak::selection
