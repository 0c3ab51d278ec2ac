/// Conversions without a window: one, or several jobs one after the other.
#pragma once

#include <string>
#include <vector>

#include "app/command_line.h"
#include "app/program.h"
#include "run/conversion_run.h"

namespace tovak::app {

/// What batch runs work with.
struct BatchTools {
  run::ConversionEngine& engine;
  const run::FormatTables& formats;
  const Surroundings& io;
};

struct BatchRun {
  run::RunResult result;
  ExitStatus status = kCommandLineProblem;
  /// The run has turned to the window, with these messages.
  bool leftBatchMode = false;
  std::vector<run::Message> messagesForWindow;
};

/// Carries out a line that has no problems. What it prints begins with `label`, for which there are several jobs; they
/// never turn to the window.
BatchRun runBatch(CommandLine& line, const BatchTools& tools, const std::string& label = {});

/// Carries out each job of the command line, whatever becomes of the others, with a line of account for each on
/// standard output: "a.tovak: status 3, 12 read, 11 converted, 1 skipped, 2 doubts, /home/me/out.csv". `first` is the
/// line read for its first job. The status is the worst: the smallest but 0.
ExitStatus runJobs(const std::string& commandLine, const CommandLine& first, const std::string& dailyReport,
                   const BatchTools& tools);

/// A job whose report is on and names no file gets that of the day.
void nameReportOfJob(CommandLine& line, const std::string& dailyReport);

}  // namespace tovak::app
