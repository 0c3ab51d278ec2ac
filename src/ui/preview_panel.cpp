#include "ui/preview_panel.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QTableView>
#include <QTextBlock>
#include <algorithm>
#include <array>
#include <utility>

#include "ui/elided_text.h"
#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

constexpr int kSuggestionsInARow = 3;
constexpr int kSuggestionWidth = 270;  ///< of a text, in pixels; a longer one can be read in its tool tip
constexpr int kColumnGap = 8;
constexpr int kWidestColumn = 260;
constexpr int kRowGap = 6;
constexpr int kLowestTab = 90;  ///< in pixels: what is left on a small screen

struct VerdictSign {
  QStyle::StandardPixmap picture;
  const char* word;
};

VerdictSign signOf(run::Verdict verdict) {
  constexpr std::array<VerdictSign, 4> kSigns = {{{QStyle::SP_MessageBoxInformation, "No preview"},
                                                  {QStyle::SP_DialogApplyButton, "Good"},
                                                  {QStyle::SP_MessageBoxWarning, "Doubtful"},
                                                  {QStyle::SP_MessageBoxCritical, "Not good"}}};
  return kSigns[static_cast<std::size_t>(verdict)];
}

/// A line of text that can be read with the keyboard and copied, and never makes the window wider.
QLineEdit* makeTextLine(QWidget* parent) {
  auto* const line = new ElidedLine(parent);
  QFont font = line->font();
  font.setBold(true);
  line->setFont(font);
  return line;
}

}  // namespace

PreviewPanel::PreviewPanel(QWidget* parent) : QWidget(parent) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);
  layout->addWidget(makeVerdict());
  suggestions_ = new QWidget(this);
  suggestionGrid_ = new QGridLayout(suggestions_);
  suggestionGrid_->setContentsMargins(0, 0, 0, 0);
  suggestionGrid_->setSpacing(4);
  suggestionGrid_->setColumnStretch(kSuggestionsInARow + 1, 1);
  suggestionGrid_->addWidget(new QLabel(tr("Suggested:"), suggestions_), 0, 0);
  layout->addWidget(suggestions_);
  tabs_ = new QTabWidget(this);
  tabs_->setObjectName("previewTabs");
  tabs_->setToolTip(tr("What the run would make of the file, as a table and as a plan"));
  tabs_->addTab(makePreview(), tr("Preview"));
  plan_ = new PlanWidget;
  plan_->setObjectName("plan");
  plan_->setToolTip(tr("The points where they lie; wheel, + and - zoom, dragging moves, Home shows all points"));
  plan_->setMinimumHeight(kLowestTab);
  tabs_->addTab(plan_, tr("Plan"));
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

QWidget* PreviewPanel::makeVerdict() {
  auto* const line = new QWidget(this);
  auto* const layout = new QHBoxLayout(line);
  layout->setContentsMargins(0, 0, 0, 0);
  sign_ = new QLabel(line);
  verdict_ = makeTextLine(line);
  verdict_->setObjectName("verdict");
  verdict_->setToolTip(tr("What would become of the points"));
  layout->addWidget(sign_);
  layout->addWidget(verdict_, 1);
  return line;
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
    plan_->selectRow(current.row());
    showTargetOf(current.row());
  });
  connect(plan_, &PlanWidget::pointSelected, table_, &QTableView::selectRow);
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
  plan_->setModel({.points = rows_.planPoints(), .areas = std::move(content.areas)});
  if (selected >= 0 && selected < rows_.rowCount()) table_->selectRow(selected);
}

void PreviewPanel::showVerdict(const PreviewContent& content) {
  const run::Preview& preview = content.preview;
  const VerdictSign sign = signOf(preview.verdict);
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  sign_->setPixmap(style()->standardIcon(sign.picture, nullptr, this).pixmap(size, size));
  const QString text =
      preview.verdict == run::Verdict::Nothing ? content.withoutPreview : toQString(preview.verdictText);
  verdict_->setText(text);
  verdict_->setCursorPosition(0);
  if (!text.isEmpty()) verdict_->setToolTip(plainTip(text));
  verdict_->setAccessibleName(tr(sign.word));
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
  suggestions_->setVisible(count > 0);
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
