#include "ui/report_printing.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrintDialog>
#include <QProgressDialog>
#include <algorithm>
#include <utility>

#include "run/run_messages.h"
#include "ui/help_key.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"
#include "ui/report_preview.h"

namespace tovak::ui {
namespace {

/// Letters larger than this only waste paper.
constexpr qreal kLargestPoints = 11;
constexpr qreal kPointsPerInch = 72;

constexpr qreal kMargin = 12.7;  // millimetres

/// "Courier New", or what the platform has instead, with letters as wide as they are drawn at any size.
QFont fixedFont() {
  const QString family = "Courier New";
  QFont font = QFontDatabase::hasFamily(family) ? QFont(family) : QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setStyleHint(QFont::Monospace);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

/// The font in which as many columns and lines fit the printer's paper.
QFont fittingFont(QPrinter& printer, const QRectF& paper, const report::SheetSize& size) {
  QFont font = fixedFont();
  constexpr int kTrialPixels = 1000;
  font.setPixelSize(kTrialPixels);
  const QFontMetricsF metrics(font, &printer);
  const QString widest(static_cast<qsizetype>(std::max<std::size_t>(size.columns, 1)), QLatin1Char('M'));
  const qreal byWidth = kTrialPixels * paper.width() / metrics.horizontalAdvance(widest);
  const qreal byHeight =
      kTrialPixels * paper.height() / (metrics.height() * static_cast<qreal>(std::max<std::size_t>(size.lines, 1)));
  const qreal largest = kLargestPoints * printer.resolution() / kPointsPerInch;
  font.setPixelSize(std::max(1, static_cast<int>(std::min({byWidth, byHeight, largest}))));
  return font;
}

void paintLine(QPainter& painter, const QRectF& paper, qreal baseline, const QString& line) {
  // Characters wider than the others, as in some scripts, are squeezed together.
  const qreal width = QFontMetricsF(painter.font(), painter.device()).horizontalAdvance(line);
  const qreal squeeze = width > paper.width() ? paper.width() / width : 1;
  painter.save();
  painter.scale(squeeze, 1);
  painter.drawText(QPointF(0, baseline), line);
  painter.restore();
}

void paintSheet(QPainter& painter, const QRectF& paper, const report::Sheet& sheet) {
  const QFontMetricsF metrics(painter.font(), painter.device());
  qreal baseline = metrics.ascent();
  for (const std::string& line : sheet) {
    paintLine(painter, paper, baseline, toQString(line));
    baseline += metrics.height();
  }
}

void preparePrinter(QPrinter& printer, const report::ReportSheets& sheets) {
  printer.setDocName(QFileInfo(toQString(sheets.fileName())).completeBaseName());
  printer.setCreator("Tovak");
  printer.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
}

/// False for a report with nothing to print, after telling the person why.
bool openSheets(QWidget* parent, report::ReportSheets& sheets) {
  if (!sheets.open()) {
    showMessage(parent, run::systemMessage(sheets.error()));
    return false;
  }
  if (sheets.size().sheets > 0) return true;
  showMessage(parent, {.text = "There is nothing to print in " + sheets.fileName(),
                       .title = "Print Report",
                       .icon = run::Icon::Exclamation});
  return false;
}

/// The library does not report a file that could not be written completely.
bool wroteWholeFile(const QPrinter& printer) {
  const QString name = printer.outputFileName();
  const QFileInfo device(name);
  if (name.isEmpty() || (device.exists() && !device.isFile())) return true;
  constexpr qint64 kTail = 16;
  QFile file(name);
  return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(0, file.size() - kTail)) &&
         file.read(kTail).contains("%%EOF");
}

void tellFailure(QWidget* parent, const QPrinter& printer, const report::ReportSheets& sheets) {
  const QString printerName =
      printer.outputFileName().isEmpty() ? printer.printerName() : QFileInfo(printer.outputFileName()).filePath();
  run::Message message = {.text = "The report could not be printed to " + printerName.toStdString(),
                          .title = "Print Report",
                          .icon = run::Icon::Exclamation};
  message.detail = sheets.error();
  showMessage(parent, message);
}

void printSheets(QWidget* parent, QPrinter& printer, report::ReportSheets& sheets) {
  const bool all = printer.printRange() != QPrinter::PageRange || printer.toPage() == 0;
  const int first = all ? 1 : printer.fromPage();
  const int last = all ? sheets.size().sheets : printer.toPage();
  QProgressDialog progress(QWidget::tr("Printing the report..."), QWidget::tr("Cancel"), 0, last, parent);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(1000);
  const bool printed = paintSheets(printer, sheets, [&](int number) {
    progress.setValue(std::min(number - 1, last - 1));
    return number >= first && number <= last && !progress.wasCanceled();
  });
  const bool canceled = progress.wasCanceled();
  progress.reset();
  if (!canceled && !(printed && wroteWholeFile(printer))) tellFailure(parent, printer, sheets);
}

}  // namespace

bool paintSheets(QPrinter& printer, report::ReportSheets& sheets, const std::function<bool(int number)>& wanted) {
  QPainter painter;
  if (!sheets.rewind() || !painter.begin(&printer)) return false;
  const QRectF paper(QPointF(0, 0), printer.pageLayout().paintRectPixels(printer.resolution()).size());
  painter.setFont(fittingFont(printer, paper, sheets.size()));
  report::Sheet sheet;
  bool begun = false;
  for (int number = 1; sheets.next(sheet); ++number) {
    if (!wanted(number)) continue;
    if (std::exchange(begun, true) && !printer.newPage()) return false;
    paintSheet(painter, paper, sheet);
  }
  return painter.end() && sheets.error().empty() && printer.printerState() != QPrinter::Error;
}

void paintOneSheet(QPainter& painter, QPrinter& printer, const report::SheetSize& size, const report::Sheet& sheet) {
  const QRectF paper(QPointF(0, 0), printer.pageLayout().paintRectPixels(printer.resolution()).size());
  painter.setFont(fittingFont(printer, paper, size));
  paintSheet(painter, paper, sheet);
}

void printReport(QWidget* parent, report::ReportSheets& sheets) {
  if (!openSheets(parent, sheets)) return;
  QPrinter printer(QPrinter::HighResolution);
  preparePrinter(printer, sheets);
  QPrintDialog dialog(&printer, parent);
  dialog.setWindowTitle(QWidget::tr("Print Report %1").arg(QFileInfo(toQString(sheets.fileName())).fileName()));
  helpOnF1(dialog, "report");
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setMinMax(1, sheets.size().sheets);
  if (dialog.exec() == QDialog::Accepted) printSheets(parent, printer, sheets);
}

void previewReport(QWidget* parent, report::ReportSheets& sheets) {
  if (!openSheets(parent, sheets)) return;
  QPrinter printer(QPrinter::HighResolution);
  preparePrinter(printer, sheets);
  frmTovakReport(printer, sheets, parent).exec();
}

}  // namespace tovak::ui
