/// The conversion run: from the selections of a run to a converted file.
#pragma once

#include <cstdint>
#include <string>

#include "run/conversion_engine.h"
#include "run/formats.h"
#include "run/person.h"
#include "run/record_counts.h"
#include "run/run_settings.h"
#include "run/target_state.h"

namespace tovak::run {

enum class RunOutcome {
  Finished,
  EndedEarly,  ///< finished, but the source ended with a message before its end
  Stopped,     ///< by a message, an answer, or silently
  Cancelled,   ///< by the person while it was under way
};

struct RunResult {
  RunOutcome outcome = RunOutcome::Stopped;
  /// The message that stopped the run or ended the source early; empty when there was none.
  std::string MessageText;
  RecordCounts counts;
  TargetState target = TargetState::NotOpened;
  std::string targetName;
  std::string reportName;         ///< empty when no report was written
  std::uint64_t reportStart = 0;  ///< where in its file the report of this run begins
};

/// Converts every point of the source file (or the keyboard) into the target file (or the screen).
///
/// An interactive run (`BatchMode` 0) shows its messages to the person; a batch run leaves them in the result, and
/// becomes interactive on the first message if `BatchMode` is 1 and the person has a window. The run changes only those
/// `settings` that the person sees change: the next default point number, a target file name that was completed,
/// `BatchMode`, and the choices that a source format forces.
///
/// The target file and the report appear when the run has finished, or when a message stopped it part way: then they
/// hold the points so far. If the operating system fails on one of them, both stay as they were, unless the failure
/// comes at the very end, while the report is appended to an older one. An older target is kept when no point was
/// converted. A run that the person cancels leaves target, report and default numbering as they were.
RunResult convert(RunSettings& settings, ConversionEngine& engine, const FormatTables& formats,
                  const Audience& audience);

}  // namespace tovak::run
