// How the main window chooses a source: the geodetic database with its lists, and dropped files.
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>
#include <utility>

#include "formats/database/map_sheets.h"
#include "selection/database_choices.h"
#include "selection/database_source.h"
#include "selection/exchange.h"
#include "selection/job_file.h"
#include "selection/suggestions.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"
#include "ui/tovak.h"
#include "ui/wait_cursor.h"
#include "ui_tovak.h"

namespace tovak::ui {
namespace {

using selection::Side;

/// The dropped file, or an empty text: the list of addresses can be empty.
QString droppedFile(const QMimeData& data) {
  const QList<QUrl> addresses = data.urls();
  return addresses.isEmpty() ? QString() : addresses.front().toLocalFile();
}

}  // namespace

void frmTovak::connectDatabase() {
  const Ui::frmTovak& f = *form_;
  using Choose = void (*)(selection::Selections&, std::string_view);
  const std::pair<QComboBox*, Choose> lists[] = {{f.lstHorizontal, selection::chooseHorizontalReference},
                                                 {f.lstCsvVertical, selection::chooseVerticalReference},
                                                 {f.lstCsvZone, selection::chooseCountyZone}};
  for (const auto& [list, choose] : lists) {
    connect(list, &QComboBox::textActivated, this, [this, chosen = choose](const QString& text) {
      chosen(selections_, text.toStdString());
      refresh();
    });
  }
}

void frmTovak::refreshDatabase() {
  const Ui::frmTovak& f = *form_;
  const std::pair<QComboBox*, const selection::ChoiceList*> lists[] = {{f.lstHorizontal, &selections_.horizontals},
                                                                       {f.lstCsvVertical, &selections_.verticals},
                                                                       {f.lstCsvZone, &selections_.countyZones}};
  for (const auto& [list, choices] : lists) {
    list->clear();
    for (const std::string_view text : choices->texts) list->addItem(toQString(text));
    list->setCurrentIndex(choices->chosen);
    list->setEnabled(!choices->texts.empty());
  }
  f.lstCsvZone->setPlaceholderText(selections_.countyZones.texts.empty() ? tr("No zones") : tr("Choose a zone"));
  f.lblCsvSource->setText(toQString(selection::databaseProjectionLine(selections_)));
  f.txCsvtSrcFile->setText(toQString(selection::databaseFileText(selections_)));
}

void frmTovak::chooseDatabase() {
  statusBar()->clearMessage();
  const auto ask = [this](const run::Message& question) { return askOrCancel(this, question); };
  selection::DatabaseOutcome outcome;
  {
    const WaitCursor wait;
    outcome = selection::chooseDatabaseSource(selections_, start_.formatTables, ask);
  }
  refresh();
  showAllGroups();
  if (outcome.missing) statusBar()->showMessage(tr("No file of the geodetic database was found."));
  if (outcome.problem) showMessage(this, *outcome.problem);
}

/// The database needs more lines than other sources: the window grows by that much where the screen has room.
void frmTovak::showAllGroups() {
  const int missing = form_->scrollContents->minimumSizeHint().height() - form_->scrollArea->viewport()->height();
  if (missing <= 0 || isMaximized()) return;
  resize((size() + QSize(0, missing)).boundedTo(screen()->availableSize()));
}

void frmTovak::exchangeSides() {
  const bool withFormats = selection::formatsCanExchange(selections_);
  selection::exchangeSides(selections_, start_.formatTables);
  statusBar()->clearMessage();
  if (withFormats) {
    std::swap(delimitedFormats_.chosenSource, delimitedFormats_.chosenTarget);
    selection::takeSourceFile(selections_, suggestionTools());
    followSourceLayout();
  } else {
    statusBar()->showMessage(
        tr("Projections and units were exchanged. Formats and file names stay: not both formats "
           "can be read and written."));
  }
  refresh();
}

/// Dropping a map sheet selects the database too; any other file is examined, and its format is still to be chosen.
void frmTovak::dropFile(Side side, const QString& name) {
  if (running_) return;
  const std::string path = name.toStdString();
  if (selection::isJobName(path)) return openJobFile(name);
  if (side == Side::Target) {
    selection::nameFile(selections_, side, path);
    return refresh();
  }
  if (formats::database::isMapSheet(path, start_.mapSheetCodes)) {
    selection::beginDatabase(selections_, start_.formatTables);
  } else {
    selection::leaveForKeyboard(selections_, start_.formatTables);
  }
  takeSourceFile(name);
}

void frmTovak::dragEnterEvent(QDragEnterEvent* event) {
  if (!running_ && !droppedFile(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

/// Accepts the event when it brings a file. The work after a drop may ask a question, so it waits until the program
/// that the file comes from is free again.
bool frmTovak::acceptDrop(QDropEvent* event, Side side) {
  const QString name = droppedFile(*event->mimeData());
  if (name.isEmpty() || running_) return false;
  event->acceptProposedAction();
  if (event->type() == QEvent::Drop) QTimer::singleShot(0, this, [this, side, name] { dropFile(side, name); });
  return true;
}

void frmTovak::dropEvent(QDropEvent* event) {
  const bool onTarget =
      form_->grpTarget->geometry().contains(centralWidget()->mapFrom(this, event->position().toPoint()));
  acceptDrop(event, onTarget ? Side::Target : Side::Source);
}

/// A file dropped on a file box replaces its text; on its own, the box would insert the file's address as text. The
/// wheel over a list without the focus scrolls the window.
bool frmTovak::eventFilter(QObject* watched, QEvent* event) {
  if (const auto* const list = qobject_cast<QComboBox*>(watched)) {
    if (event->type() == QEvent::Wheel && !list->hasFocus()) {
      event->ignore();
      return true;
    }
    for (const SideWidgets& side : sides_) {
      if (list == side.format) return keepFormatList(side, event);
    }
    return QMainWindow::eventFilter(watched, event);
  }
  if (event->type() == QEvent::DragEnter || event->type() == QEvent::Drop) {
    const Side side = watched == form_->txtTargetFile ? Side::Target : Side::Source;
    if (acceptDrop(static_cast<QDropEvent*>(event), side)) return true;
  }
  return QMainWindow::eventFilter(watched, event);
}

}  // namespace tovak::ui
