/// The command line that says what the selections say.
#pragma once

#include <string>

#include "run/formats.h"
#include "run/run_settings.h"
#include "text/result.h"

namespace tovak::app {

/// The batch command line, quoted for the shell, with which the same target is written, such as "tovak 'a b.csv'
/// out.csv -B -SF2 -SP1 -SUE -A4 -TF2 -TP2 -TUM". A report is not asked of it: a batch run writes one only for a job.
/// The error says why there is none: the first of the selections that no switch can make, as a line of a job.
text::Result<std::string> commandText(const run::RunSettings& settings, const run::FormatTables& formats);

/// The command line that runs a job.
std::string jobCommandText(const std::string& jobFile);

}  // namespace tovak::app
