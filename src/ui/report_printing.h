/// Reports on paper: the sheets of a report file through the print dialog, or in a preview.
#pragma once

#include <QPrinter>
#include <QString>
#include <QWidget>
#include <functional>

#include "report/report_sheets.h"

namespace tovak::ui {

/// Paints the sheets, which are open, in "Courier New" or else the platform's fixed font, as large as lets the widest
/// line and the tallest sheet stay on the paper. Told of each sheet's number (from 1) beforehand, `wanted` says whether
/// it is painted. False: the printer failed, or the report (then its `error()` says how).
bool paintSheets(QPrinter& printer, report::ReportSheets& sheets, const std::function<bool(int number)>& wanted);

/// Asks where to print, and prints. Cancelled, nothing happens; what fails is told.
void printReport(QWidget* parent, report::ReportSheets& sheets);

/// Shows how the sheets would be printed. The preview has a button that prints them.
void previewReport(QWidget* parent, report::ReportSheets& sheets);

}  // namespace tovak::ui
