#include "ui/result_panel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/result_text.h"

namespace tovak::ui {
namespace {

constexpr int kColumnGap = 10;
constexpr int kRowGap = 6;
constexpr int kWidestText = 320;
constexpr int kLowestPart = 40;  ///< in pixels: what is left on a small screen

}  // namespace

ResultPanel::ResultPanel(QWidget* parent)
    : QWidget(parent), headline_(new VerdictLine("resultHeadline", tr("What became of the points"), this)) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(6, 4, 6, 4);
  layout->setSpacing(4);
  layout->addWidget(headline_);
  auto* const splitter = new QSplitter(Qt::Horizontal, this);
  splitter->setChildrenCollapsible(false);
  account_ = new QTextBrowser(splitter);
  account_->setObjectName("resultAccount");
  account_->setAccessibleName(tr("Account of the run"));
  account_->setToolTip(tr("What became of every record of the source, and where the files are"));
  account_->setMinimumHeight(kLowestPart);
  account_->setTabChangesFocus(true);
  splitter->addWidget(makeList());
  splitter->setStretchFactor(0, 1);
  splitter->setStretchFactor(1, 1);
  layout->addWidget(splitter, 1);
  layout->addWidget(makeButtons());
}

QWidget* ResultPanel::makeList() {
  auto* const part = new QWidget(this);
  auto* const layout = new QVBoxLayout(part);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  listHeading_ = new QLabel(part);
  listHeading_->setObjectName("lblUnconverted");
  table_ = new QTableView(part);
  listHeading_->setBuddy(table_);
  table_->setObjectName("unconvertedTable");
  table_->setAccessibleName(tr("Lines that were not converted"));
  table_->setToolTip(tr("Lines that were not converted; Ctrl+C copies the selected ones"));
  table_->setModel(&rows_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setTabKeyNavigation(false);
  table_->setAlternatingRowColors(true);
  table_->setWordWrap(false);
  table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table_->setMinimumHeight(kLowestPart);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowGap);
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->horizontalHeader()->setHighlightSections(false);
  auto* const copy = new QAction(tr("Copy"), table_);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  table_->addAction(copy);
  table_->setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(copy, &QAction::triggered, this, &ResultPanel::copyRows);
  layout->addWidget(listHeading_);
  layout->addWidget(table_, 1);
  return part;
}

QPushButton* ResultPanel::addButton(QWidget* row, const char* name, const QString& text, const QString& tip) {
  auto* const button = new QPushButton(text, row);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  row->layout()->addWidget(button);
  return button;
}

QWidget* ResultPanel::makeButtons() {
  auto* const row = new QWidget(this);
  auto* const layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  openTarget_ = addButton(row, "cmdOpenTarget", tr("Open target"), tr("Open the target file with its usual program"));
  openReport_ = addButton(row, "cmdOpenReport", tr("Open report"), tr("Show the report of this run"));
  showGrid_ = addButton(row, "cmdShowGrid", tr("Show grid"), tr("Show the converted points"));
  layout->addStretch(1);
  copyList_ = addButton(row, "cmdCopyList", tr("Copy list"), tr("Copy all lines of the list"));
  saveList_ = addButton(row, "cmdSaveList", tr("Save list..."), tr("Write all lines of the list to a file"));
  connect(openTarget_, &QPushButton::clicked, this, &ResultPanel::targetWanted);
  connect(openReport_, &QPushButton::clicked, this, &ResultPanel::reportWanted);
  connect(showGrid_, &QPushButton::clicked, this, &ResultPanel::gridWanted);
  connect(copyList_, &QPushButton::clicked, this, [this] { QGuiApplication::clipboard()->setText(rows_.listText()); });
  connect(saveList_, &QPushButton::clicked, this, [this] { emit listToSave(rows_.listText()); });
  return row;
}

void ResultPanel::copyRows() {
  const QString text = rows_.rowsText(*table_->selectionModel());
  if (!text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

void ResultPanel::showRun(const FinishedRun& run) {
  const ResultHeadline headline = resultHeadline(run);
  headline_->setVerdict(headline.verdict, headline.text);
  account_->setHtml(resultText(run));
  showLines(run.lines);
  const bool written = run.result.target == run::TargetState::Written;
  openTarget_->setEnabled(written);
  openReport_->setEnabled(!run.result.reportName.empty());
  showGrid_->setEnabled(run.grid != nullptr);
}

void ResultPanel::showLines(const run::UnconvertedLines& lines) {
  rows_.setLines(lines);
  QString heading = tr("No line was left out");
  if (lines.count == 1) heading = tr("1 line was not converted");
  if (lines.count > 1) heading = tr("%L1 lines were not converted").arg(lines.count);
  if (lines.count > lines.lines.size()) heading += tr("; these are the first %L1").arg(lines.lines.size());
  listHeading_->setText(heading);
  table_->setEnabled(lines.count != 0);
  copyList_->setEnabled(lines.count != 0);
  saveList_->setEnabled(lines.count != 0);
  table_->resizeColumnsToContents();
  for (const int column : {UnconvertedRows::kLine, UnconvertedRows::kText}) {
    table_->setColumnWidth(column, std::min(table_->columnWidth(column) + kColumnGap, kWidestText));
  }
}

}  // namespace tovak::ui
