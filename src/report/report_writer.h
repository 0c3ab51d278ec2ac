/// The report file of a run: pages of text for a printer with a fixed pitch.
#pragma once

#include <memory>
#include <string>

#include "run/formats.h"

namespace tovak::report {

/// A report has pages of at most 14 points under a head that says what was converted. The lines of a page are built by
/// advancing to columns (see `text::ColumnLine`): a long text moves what follows it to the next line and is never cut.
/// After an earlier report of the same file it begins on a new page, whose number is 1 again.
std::unique_ptr<run::PointWriter> makeReportWriter(const run::ReportContext& context);

/// The text between the contents of a file and a report appended to them: the end of an open line, and a form feed
/// after an earlier report.
std::string reportJoint(const std::string& fileName);

}  // namespace tovak::report
