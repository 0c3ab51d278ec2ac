#include "ui/preview_panel.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTableView>
#include <QTextBlock>
#include <algorithm>
#include <utility>

#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

constexpr int kPlanTab = 1;
constexpr int kResultTab = 2;
constexpr int kSuggestionsInARow = 3;
constexpr int kSuggestionWidth = 270;  ///< of a text, in pixels; a longer one can be read in its tool tip
constexpr int kColumnGap = 8;
constexpr int kWidestColumn = 260;
constexpr int kRowGap = 6;
constexpr int kLowestTab = 90;  ///< in pixels: what is left on a small screen

}  // namespace

PreviewPanel::PreviewPanel(QWidget* parent) : QWidget(parent) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);
  verdict_ = new VerdictLine("verdict", tr("What would become of the points"), this);
  layout->addWidget(verdict_);
  suggestions_ = new QWidget(this);
  suggestionGrid_ = new QGridLayout(suggestions_);
  suggestionGrid_->setContentsMargins(0, 0, 0, 0);
  suggestionGrid_->setSpacing(4);
  suggestionGrid_->setColumnStretch(kSuggestionsInARow + 1, 1);
  suggestionGrid_->addWidget(new QLabel(tr("Suggested:"), suggestions_), 0, 0);
  layout->addWidget(suggestions_);
  tabs_ = new QTabWidget(this);
  tabs_->setObjectName("previewTabs");
  tabs_->setToolTip(
      tr("What a run would make of the file, as a table and as a plan, and what the last one made of it"));
  tabs_->addTab(makePreview(), tr("Preview"));
  plan_ = new PlanWidget;
  plan_->setObjectName("plan");
  plan_->setToolTip(tr("The points where they lie; wheel, + and - zoom, dragging moves, Home shows all points"));
  plan_->setMinimumHeight(kLowestTab);
  tabs_->addTab(plan_, tr("Plan"));
  result_ = new ResultPanel;
  tabs_->addTab(result_, tr("Result"));
  tabs_->setTabEnabled(kResultTab, false);
  layout->addWidget(tabs_, 1);

  tabs_->setCornerWidget(makeCorner());
  connectRows();
}

QWidget* PreviewPanel::makeCorner() {
  auto* const corner = new QWidget(tabs_);
  auto* const layout = new QHBoxLayout(corner);
  layout->setContentsMargins(0, 0, 0, 2);
  auto* const showTarget = new QCheckBox(tr("Show the target file"), corner);
  showTarget->setObjectName("chkTargetText");
  showTarget->setToolTip(tr("Show the first lines of the target file, as they would be written"));
  connect(showTarget, &QCheckBox::toggled, this, [this](bool shown) {
    target_->setVisible(shown);
    if (shown) tabs_->setCurrentIndex(0);
    showTargetOf(table_->currentIndex().row());
  });
  layout->addWidget(showTarget);
  return corner;
}

QWidget* PreviewPanel::makePreview() {
  auto* const splitter = new QSplitter(Qt::Horizontal);
  splitter->setChildrenCollapsible(false);
  table_ = new QTableView(splitter);
  table_->setObjectName("previewTable");
  table_->setAccessibleName(tr("Preview of the points"));
  table_->setToolTip(tr("The first points, with the figures that would be written"));
  table_->setModel(&rows_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setTabKeyNavigation(false);
  table_->setAlternatingRowColors(true);
  table_->setWordWrap(false);
  table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table_->setMinimumHeight(kLowestTab);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowGap);
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->horizontalHeader()->setHighlightSections(false);
  target_ = new QPlainTextEdit(splitter);
  target_->setObjectName("targetText");
  target_->setAccessibleName(tr("Beginning of the target file"));
  target_->setToolTip(tr("The first lines of the target file, as they would be written"));
  target_->setReadOnly(true);
  target_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  target_->setTabChangesFocus(true);
  target_->setLineWrapMode(QPlainTextEdit::NoWrap);
  target_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  target_->setVisible(false);
  splitter->setStretchFactor(0, 2);
  splitter->setStretchFactor(1, 1);
  return splitter;
}

void PreviewPanel::connectRows() {
  connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& current) {
    selectOnPlan(current.row());
    showTargetOf(current.row());
  });
  connect(plan_, &PlanWidget::pointSelected, this, &PreviewPanel::selectInTable);
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) {
    if (tab != kResultTab) tabBefore_ = tab;
    if (planWaits_) showPlan();
    // They tell of the next run.
    verdict_->setVisible(tab != kResultTab);
    suggestions_->setVisible(tab != kResultTab && anySuggestion_);
  });
}

/// The points of a run know their lines, those of a preview their rows.
void PreviewPanel::selectOnPlan(int row) {
  const bool known = runPoints_ && row >= 0 && row < rows_.rowCount();
  plan_->selectRow(known ? static_cast<int>(rows_.at(row).line) : row);
}

void PreviewPanel::selectInTable(int row) {
  if (!runPoints_) return table_->selectRow(row);
  for (int index = 0; index < rows_.rowCount(); ++index) {
    if (rows_.at(index).line == static_cast<std::uint64_t>(row)) table_->selectRow(index);
  }
}

void PreviewPanel::showResult(const FinishedRun& run) {
  result_->showRun(run);
  runPoints_ = run.points;
  sampledFrom_ = run.sampledFrom;
  showPlan();
  tabs_->setTabEnabled(kResultTab, true);
  tabs_->setCurrentIndex(kResultTab);
}

/// A plan out of sight waits: after a run it has many points to place.
void PreviewPanel::showPlan() {
  planWaits_ = tabs_->currentIndex() != kPlanTab;
  if (planWaits_) return;
  plan_->setModel({.points = runPoints_ ? *runPoints_ : rows_.planPoints(),
                   .areas = areas_,
                   .sampledFrom = runPoints_ ? sampledFrom_ : 0});
  selectOnPlan(table_->currentIndex().row());
}

void PreviewPanel::setContent(PreviewContent content) {
  const int selected = table_->currentIndex().row();
  showVerdict(content);
  showSuggestions(content.suggestions);
  targetText_ = std::move(content.preview.targetText);
  target_->setPlainText(toQString(targetText_));
  rows_.setRows(std::move(content.preview.rows), content.settings);
  fitColumns();
  plan_->setFeet(!content.settings.target.metres);
  areas_ = std::move(content.areas);
  if (!content.afterRun) {
    runPoints_.reset();
    if (tabs_->currentIndex() == kResultTab) tabs_->setCurrentIndex(tabBefore_);
  }
  showPlan();
  if (selected >= 0 && selected < rows_.rowCount()) table_->selectRow(selected);
}

void PreviewPanel::showVerdict(const PreviewContent& content) {
  const run::Preview& preview = content.preview;
  verdict_->setVerdict(preview.verdict, preview.verdict == run::Verdict::Nothing ? content.withoutPreview
                                                                                 : toQString(preview.verdictText));
}

void PreviewPanel::showSuggestions(const std::vector<selection::Suggestion>& suggestions) {
  for (QPushButton* const old : suggestions_->findChildren<QPushButton*>()) {
    old->hide();
    old->setObjectName({});
    old->setParent(nullptr);
    old->deleteLater();
  }
  int count = 0;
  for (const selection::Suggestion& suggestion : suggestions) {
    const QString label = toQString(suggestion.label);
    const QString shown = fontMetrics().elidedText(label, Qt::ElideMiddle, kSuggestionWidth);
    auto* const button = new QPushButton(QString(shown).replace('&', "&&"), suggestions_);
    button->setObjectName(QString("suggestion%1").arg(count));
    button->setAccessibleName(label);
    button->setToolTip(plainTip(label + ".\n" + toQString(suggestion.reason)));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, suggestion] { take(suggestion); });
    button->setMinimumWidth(button->sizeHint().width() + 2 * kColumnGap);
    suggestionGrid_->addWidget(button, count / kSuggestionsInARow, 1 + count % kSuggestionsInARow);
    ++count;
  }
  anySuggestion_ = count > 0;
  suggestions_->setVisible(anySuggestion_ && tabs_->currentIndex() != kResultTab);
}

/// The button disappears with its suggestion; the focus must not be lost.
void PreviewPanel::take(const selection::Suggestion& suggestion) {
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the suggestions are gone when the signal comes back.
  const selection::Suggestion taken = suggestion;
  table_->setFocus();
  emit suggestionTaken(taken);
}

void PreviewPanel::showTargetOf(int row) {
  if (row < 0 || row >= rows_.rowCount() || target_->isHidden()) return;
  const run::PreviewRow& point = rows_.at(row);
  if (point.targetBegin == point.targetEnd) return;
  const auto begin = targetText_.begin();
  const auto line = std::count(begin, begin + static_cast<std::ptrdiff_t>(point.targetBegin), '\n');
  QTextCursor cursor(target_->document()->findBlockByNumber(static_cast<int>(line)));
  cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
  target_->setTextCursor(cursor);
}

void PreviewPanel::fitColumns() {
  table_->resizeColumnsToContents();
  for (int column = 0; column < PreviewRows::kReason; ++column) {
    table_->setColumnWidth(column, std::min(table_->columnWidth(column) + kColumnGap, kWidestColumn));
  }
}

}  // namespace tovak::ui
