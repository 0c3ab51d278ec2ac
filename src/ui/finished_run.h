/// A run that is over, with all that there is to look at.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "run/conversion_run.h"
#include "run/run_settings.h"
#include "run/unconverted_lines.h"
#include "ui/plan_model.h"
#include "ui/tovak_output.h"

namespace tovak::ui {

struct FinishedRun {
  run::RunSettings settings;  ///< as the run left them
  run::RunResult result;
  run::UnconvertedLines lines;
  std::vector<PlanPoint> points;         ///< in the order of their lines; `row` is the line of the source
  std::size_t sampledFrom = 0;           ///< how many points there were where these are a sample
  std::unique_ptr<frmTovakOutput> grid;  ///< of these settings; null when no point was shown in it
};

}  // namespace tovak::ui
