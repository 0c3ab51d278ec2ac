/// A report as it would be printed, sheet by sheet.
#pragma once

#include <QDialog>
#include <QPrinter>

#include "report/report_sheets.h"

class QScrollArea;
class QSpinBox;

namespace tovak::ui {

class SheetView;

/// Reads a sheet when it is shown and keeps no other, so a file may have any number of them. Begins at the newest
/// report of the file. Page Up and Page Down turn the pages, Ctrl+Home and Ctrl+End go to the first and the last.
class frmTovakReport final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakReport)

 public:
  /// `sheets` are open and have something to print.
  frmTovakReport(QPrinter& printer, report::ReportSheets& sheets, QWidget* parent);
  ~frmTovakReport() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeButtons();
  void showSheet(int number);
  void print();
  void fit();

  report::ReportSheets& sheets_;
  SheetView* view_;
  QScrollArea* area_;
  QSpinBox* number_;
  double zoom_ = 1.0;  ///< times the width of the room for the paper
};

}  // namespace tovak::ui
