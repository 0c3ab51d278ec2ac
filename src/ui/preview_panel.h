/// The part of the main window that shows what a run would make of the source file: a verdict, what to change when it
/// is not good, the points with their figures, the beginning of the target file, and the points on a plan.
#pragma once

#include <QString>
#include <QWidget>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "run/preview.h"
#include "selection/suggestions.h"
#include "ui/plan_widget.h"
#include "ui/preview_rows.h"
#include "ui/result_panel.h"
#include "ui/verdict_line.h"

class QGridLayout;
class QPlainTextEdit;
class QTableView;
class QTabWidget;

namespace tovak::ui {

struct PreviewContent {
  run::Preview preview;
  std::vector<selection::Suggestion> suggestions;
  run::RunSettings settings;  ///< those of the preview
  std::vector<PlanArea> areas;
  QString withoutPreview;  ///< what the verdict says when there is nothing to preview
  bool afterRun = false;   ///< nothing was changed since the run whose result is shown
};

class PreviewPanel : public QWidget {
  Q_OBJECT

 public:
  explicit PreviewPanel(QWidget* parent = nullptr);

  /// The selected row stays selected when it is there. Result and points of a run give way when something was changed.
  void setContent(PreviewContent content);
  /// Turns to the result of a run, whose points take their place on the plan.
  void showResult(const FinishedRun& run);
  ResultPanel& result() { return *result_; }

 signals:
  void suggestionTaken(const tovak::selection::Suggestion& suggestion);

 private:
  QWidget* makePreview();
  QWidget* makeCorner();
  void connectRows();
  void showVerdict(const PreviewContent& content);
  void showSuggestions(const std::vector<selection::Suggestion>& suggestions);
  void take(const selection::Suggestion& suggestion);
  void showTargetOf(int row);
  void showPlan();
  void selectOnPlan(int row);
  void selectInTable(int row);
  void fitColumns();

  PreviewRows rows_;
  VerdictLine* verdict_ = nullptr;
  QWidget* suggestions_ = nullptr;
  QGridLayout* suggestionGrid_ = nullptr;
  QTabWidget* tabs_ = nullptr;
  QTableView* table_ = nullptr;
  QPlainTextEdit* target_ = nullptr;
  PlanWidget* plan_ = nullptr;
  ResultPanel* result_ = nullptr;
  std::string targetText_;
  std::vector<PlanArea> areas_;
  std::optional<std::vector<PlanPoint>> runPoints_;  ///< of the last run, until something is changed
  std::size_t sampledFrom_ = 0;
  int tabBefore_ = 0;  ///< where the person was before the result came
  bool anySuggestion_ = false;
  bool planWaits_ = false;
};

}  // namespace tovak::ui
