#include "ui/tovak_output.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QScreen>
#include <algorithm>

#include "ui/help_key.h"
#include "ui_tovak_output.h"

namespace tovak::ui {
namespace {

/// Space beside the texts of a column, to keep neighbours apart.
constexpr int kColumnGap = 10;

constexpr int kRowGap = 6;
constexpr int kLastColumn = OutputRows::kColumns - 1;

}  // namespace

frmTovakOutput::frmTovakOutput(const run::RunSettings& settings, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmTovakOutput>()), rows_(settings), mnuPopUp_(new QMenu(this)) {
  ui_->setupUi(this);
  helpOnF1(*this, "t-screen");
  resize(size().boundedTo(screen()->availableSize()));
  QTableView* const grid = ui_->msfgOutput;
  grid->setModel(&rows_);
  grid->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowGap);
  grid->addActions({ui_->mnuCopy, ui_->mnuCopyTable});
  mnuPopUp_->setObjectName("mnuPopUp");
  mnuPopUp_->setTitle(tr("PopUp Menu"));
  mnuPopUp_->addActions({ui_->mnuCopy, ui_->mnuCopyTable});
  connect(grid, &QTableView::customContextMenuRequested, this, &frmTovakOutput::openMenu);
  connect(ui_->mnuCopy, &QAction::triggered, this, [this] { copySelection(copyText); });
  connect(ui_->mnuCopyTable, &QAction::triggered, this, [this] { copySelection(tableText); });
  connect(grid->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { enableCopying(ui_->msfgOutput->selectionModel()->hasSelection()); });
  connect(ui_->cmdReturn, &QPushButton::clicked, this, &QDialog::accept);
}

frmTovakOutput::~frmTovakOutput() = default;

void frmTovakOutput::startGrid() {
  rows_.clear();
  enableCopying(false);
}

void frmTovakOutput::enableCopying(bool enabled) {
  for (QAction* const action : {ui_->mnuCopy, ui_->mnuCopyTable}) action->setEnabled(enabled);
}

void frmTovakOutput::setDescriptions(const QString& source, const QString& target) {
  ui_->lblInProj->setText(source);
  ui_->lblOutProj->setText(target);
}

/// The person wants to see the point typed last.
void frmTovakOutput::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  rows_.showAdded();
  const auto shown = static_cast<std::uint64_t>(rows_.rowCount());
  ui_->lblConverted->setVisible(shown < converted_);
  ui_->lblConverted->setText(
      tr("%L1 points were converted in all; the grid holds the last %L2.").arg(converted_).arg(shown));
  QTableView& grid = *ui_->msfgOutput;
  grid.resizeColumnsToContents();
  for (int column = 0; column < OutputRows::kColumns; ++column) {
    grid.setColumnWidth(column, grid.columnWidth(column) + kColumnGap);
  }
  lastColumnWidth_ = grid.columnWidth(kLastColumn);
  fillWidth();
  grid.scrollToBottom();
  grid.setFocus();
}

void frmTovakOutput::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  fillWidth();
}

/// The last column takes the rest of the grid, but never less than its texts need.
void frmTovakOutput::fillWidth() {
  QTableView& grid = *ui_->msfgOutput;
  const int left = grid.viewport()->width() - grid.columnViewportPosition(kLastColumn);
  grid.setColumnWidth(kLastColumn, std::max(lastColumnWidth_, left));
}

void frmTovakOutput::copySelection(QString (*textOf)(const QItemSelectionModel& selection)) {
  QClipboard& clipboard = *QApplication::clipboard();
  clipboard.clear();
  clipboard.setText(textOf(*ui_->msfgOutput->selectionModel()));
}

void frmTovakOutput::openMenu(const QPoint& position) {
  mnuPopUp_->popup(ui_->msfgOutput->viewport()->mapToGlobal(position));
}

}  // namespace tovak::ui
