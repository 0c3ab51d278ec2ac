/// What a run has come to: the account, the lines that were not converted, and the way to its files.
#pragma once

#include <QWidget>

#include "ui/finished_run.h"
#include "ui/unconverted_rows.h"
#include "ui/verdict_line.h"

class QLabel;
class QPushButton;
class QTableView;
class QTextBrowser;

namespace tovak::ui {

class ResultPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ResultPanel(QWidget* parent = nullptr);

  void showRun(const FinishedRun& run);

 signals:
  void targetWanted();
  void reportWanted();
  void gridWanted();
  /// The person wants the list, which is this text, in a file.
  void listToSave(const QString& text);

 private:
  QWidget* makeList();
  QWidget* makeButtons();
  QPushButton* addButton(QWidget* row, const char* name, const QString& text, const QString& tip);
  void copyRows();
  void showLines(const run::UnconvertedLines& lines);

  UnconvertedRows rows_;

  VerdictLine* const headline_;
  QTextBrowser* account_ = nullptr;
  QLabel* listHeading_ = nullptr;
  QTableView* table_ = nullptr;
  QPushButton* openTarget_ = nullptr;
  QPushButton* openReport_ = nullptr;
  QPushButton* showGrid_ = nullptr;
  QPushButton* copyList_ = nullptr;
  QPushButton* saveList_ = nullptr;
};

}  // namespace tovak::ui
