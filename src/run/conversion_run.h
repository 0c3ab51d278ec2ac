/// The conversion run: from the selections of a run to a converted file.
#pragma once

#include <string>

#include "run/conversion_engine.h"
#include "run/formats.h"
#include "run/person.h"
#include "run/record_counts.h"
#include "run/run_settings.h"

namespace tovak::run {

enum class RunOutcome {
  Finished,
  EndedEarly,  ///< finished, but the source ended with a message before its end
  Stopped,     ///< by a message, an answer, or silently
};

struct RunResult {
  RunOutcome outcome = RunOutcome::Stopped;
  /// The message that stopped the run or ended the source early; empty when there was none.
  std::string MessageText;
  RecordCounts counts;
};

/// Converts every point of the source file (or the keyboard) into the target file (or the screen).
///
/// An interactive run (`BatchMode` 0) shows its messages through `person`; a batch run leaves them in the result, and
/// turns into an interactive one on the first message if `BatchMode` is 1 and the person has a window. Of `settings`,
/// the run changes what the person sees change: the next default point number, a target file name that was completed,
/// `BatchMode`, and the choices that a source format forces.
///
/// The target file and the report appear when the run has finished, or when it was stopped by a message in the middle:
/// then they hold the points so far. A failure of the operating system in one of them leaves both as they were.
RunResult convert(RunSettings& settings, ConversionEngine& engine, const FormatTables& formats, Person& person);

/// The message for a failure of the operating system (file name and the system's text).
Message systemMessage(const std::string& error);

}  // namespace tovak::run
