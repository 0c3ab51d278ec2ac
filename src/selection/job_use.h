/// From the selections to a job, and from a job to a run.
#pragma once

#include <optional>

#include "run/conversion_engine.h"
#include "run/message.h"
#include "selection/job.h"
#include "selection/selections.h"
#include "text/result.h"

namespace tovak::selection {

/// The job of these settings, with the engine's names of their systems. Where a side has the user-defined project, the
/// one of the data folder goes into the job; the error says why it cannot.
text::Result<Job> jobOf(run::RunSettings settings, run::ConversionEngine& engine);

/// The message when a system of the job is another one here; nothing when all is well.
std::optional<run::Message> otherSystem(const Job& job, run::ConversionEngine& engine);

/// Chooses the geodetic database again as a job says: its sheets are scanned, and the choices among what they have are
/// made. Nothing for other sources. The message says which choice is not there.
std::optional<run::Message> resumeDatabase(Selections& selections, const run::FormatTables& formats);

}  // namespace tovak::selection
