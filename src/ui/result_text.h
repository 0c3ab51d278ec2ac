/// The result of a run in words.
#pragma once

#include <QString>

#include "run/preview.h"
#include "ui/finished_run.h"

namespace tovak::ui {

struct ResultHeadline {
  run::Verdict verdict = run::Verdict::Good;
  QString text;  ///< one line
};

ResultHeadline resultHeadline(const FinishedRun& run);

/// The account by fate, the reasons, the doubts with their lines, and where the files are, in HTML that leaves all
/// colours to the palette.
QString resultText(const FinishedRun& run);

}  // namespace tovak::ui
