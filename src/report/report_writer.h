/// The report file of a run: pages of text for a printer with a fixed pitch.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::report {

/// A report has pages of at most 14 points under a head that tells what was converted. The lines of a page are built by
/// advancing to columns (see `text::ColumnLine`): a long text moves what follows it to the next line and is never cut.
/// Behind an earlier report of the same file it begins on a new page, whose number is 1 again.
std::unique_ptr<run::PointWriter> makeReportWriter(const run::ReportContext& context);

}  // namespace tovak::report
