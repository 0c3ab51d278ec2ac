/// Reports on paper: the sheets of a report file through the print dialog, or in a preview.
#pragma once

#include <QPrinter>
#include <QString>
#include <QWidget>
#include <functional>

#include "report/report_sheets.h"

namespace tovak::ui {

/// Paints the sheets, which are open, in "Courier New" or else in the platform's fixed font, as large as possible with
/// the widest line and the tallest sheet still on the paper. `wanted` is called with each sheet's number (from 1)
/// beforehand and says whether to paint it. False: the printer failed, or the report (then its `error()` says how).
bool paintSheets(QPrinter& printer, report::ReportSheets& sheets, const std::function<bool(int number)>& wanted);

/// Paints one sheet in the printer's pixels, from the corner of what it can print on.
void paintOneSheet(QPainter& painter, QPrinter& printer, const report::SheetSize& size, const report::Sheet& sheet);

/// Asks where to print, and prints. Does nothing when cancelled; failures are shown to the person.
void printReport(QWidget* parent, report::ReportSheets& sheets);

/// Shows how the sheets would be printed, from the newest report on. The preview has a button to print them.
void previewReport(QWidget* parent, report::ReportSheets& sheets);

}  // namespace tovak::ui
