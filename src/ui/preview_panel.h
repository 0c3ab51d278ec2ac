/// The part of the main window that shows what a run would make of the source file: a verdict, what to change when it
/// is not good, the points with their figures, the beginning of the target file, and the points on a plan.
#pragma once

#include <QString>
#include <QWidget>
#include <string>
#include <vector>

#include "run/preview.h"
#include "selection/suggestions.h"
#include "ui/plan_widget.h"
#include "ui/preview_rows.h"

class QGridLayout;
class QLabel;
class QLineEdit;
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
};

class PreviewPanel : public QWidget {
  Q_OBJECT

 public:
  explicit PreviewPanel(QWidget* parent = nullptr);

  /// The selected row stays selected when it is there.
  void setContent(PreviewContent content);

 signals:
  void suggestionTaken(const tovak::selection::Suggestion& suggestion);

 private:
  QWidget* makeVerdict();
  QWidget* makePreview();
  QWidget* makeCorner();
  void connectRows();
  void showVerdict(const PreviewContent& content);
  void showSuggestions(const std::vector<selection::Suggestion>& suggestions);
  void take(const selection::Suggestion& suggestion);
  void showTargetOf(int row);
  void fitColumns();

  PreviewRows rows_;
  QLabel* sign_ = nullptr;
  QLineEdit* verdict_ = nullptr;
  QWidget* suggestions_ = nullptr;
  QGridLayout* suggestionGrid_ = nullptr;
  QTabWidget* tabs_ = nullptr;
  QTableView* table_ = nullptr;
  QPlainTextEdit* target_ = nullptr;
  PlanWidget* plan_ = nullptr;
  std::string targetText_;
};

}  // namespace tovak::ui
