#include "ui/tovak.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QScreen>
#include <QSettings>

#include "app/account_line.h"
#include "run/format_index.h"
#include "selection/own_file.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"
#include "ui/system_list.h"
#include "ui/tovak_com_del.h"
#include "ui/tovak_project.h"
#include "ui/wait_cursor.h"
#include "ui/window_person.h"
#include "ui_tovak.h"

namespace tovak::ui {
namespace {

using selection::Side;

constexpr std::array<const char*, 6> kAccuracies = {".001 units", ".01 units", ".1 units",
                                                    "1 unit",     "10 units",  "100 units"};

/// Qt writes the filter's pattern in brackets only, and takes "*" for any name.
QString askForFile(QWidget* parent, const QString& title, const QString& folder, bool toSave,
                   const QString& suggested = {}) {
  QFileDialog dialog(parent, title, folder, "All Files (*)");
  dialog.setAcceptMode(toSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(toSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (!suggested.isEmpty()) dialog.selectFile(suggested);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().front() : QString();
}

/// Qt's file dialog keeps the folders it was in for its next start. Nothing of a session is stored here: its settings
/// go where no file can be.
void storeNoDialogSettings() {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

}  // namespace

frmTovak::frmTovak(const app::WindowStart& start, QWidget* parent)
    : QMainWindow(parent),
      start_(start),
      engine_(*start.engine),
      selections_(selection::selectionsFrom(start.settings)),
      delimitedFormats_({.table = start.delimitedFormats, .saved = start.delimitedFormats}),
      form_(std::make_unique<Ui::frmTovak>()),
      folder_(toQString(start.workingFolder.string())) {
  storeNoDialogSettings();
  form_->setupUi(this);
  setWindowTitle("Tovak  Version " + toQString(start.version));
  makeSides();
  fillLists();
  for (const SideWidgets& side : sides_) chooseLayout(side, 0);
  for (const SideWidgets& side : sides_) connectSide(side);
  connectDatabase();
  connectOptions();
  connectReport();
  connectMenus();
  setRunning(false);
  refresh();
  form_->lstSourceFormat->setFocus();
  // On a small screen, or a strongly scaled one, the groups scroll.
  resize(size().boundedTo(screen()->availableSize()));
}

frmTovak::~frmTovak() = default;

void frmTovak::makeSides() {
  const Ui::frmTovak& f = *form_;
  sides_ = {
      {{Side::Source, f.lstSourceFormat, f.lstSourceLayout, f.cmdSourceLayout, f.txtSourceProjection, f.lblSourceSystem,
        f.cmdSourceChoose, f.btnSourceEnglish, f.btnSourceMetric, f.txtSourceFile, f.cmdSourceBrowse},
       {Side::Target, f.lstTargetFormat, f.lstTargetLayout, f.cmdTargetLayout, f.txtTargetProjection, f.lblTargetSystem,
        f.cmdTargetChoose, f.btnTargetEnglish, f.btnTargetMetric, f.txtTargetFile, f.cmdTargetBrowse}}};
}

void frmTovak::fillLists() {
  for (const run::SourceFormat& format : start_.formatTables.sources)
    form_->lstSourceFormat->addItem(toQString(format.name));
  for (const run::TargetFormat& format : start_.formatTables.targets)
    form_->lstTargetFormat->addItem(toQString(format.name));
  for (const char* const accuracy : kAccuracies) form_->lstAccuracy->addItem(accuracy);
}

run::SideSettings& frmTovak::settingsOf(Side side) {
  return side == Side::Source ? selections_.run.source : selections_.run.target;
}

void frmTovak::chooseSourceFormat(int index) {
  if (index == run::source::GeodeticCsv) {
    selections_.run.sourceFormat = run::source::GeodeticCsv;
    const bool fileChosen = selections_.run.source.fileName.empty() && browse(sides_[0]);
    if (!fileChosen) chooseDatabase();
    return;
  }
  const selection::FormatOutcome outcome =
      selection::chooseSourceFormat(selections_, start_.formatTables, static_cast<std::int16_t>(index));
  refresh();
  if (outcome.askForFile) browse(sides_[0]);
}

void frmTovak::chooseTargetFormat(int index) {
  const selection::FormatOutcome outcome =
      selection::chooseTargetFormat(selections_, start_.formatTables, static_cast<std::int16_t>(index));
  refresh();
  if (outcome.askForFile) browse(sides_[1]);
}

void frmTovak::chooseLayout(const SideWidgets& side, int index) {
  const bool isSource = side.side == Side::Source;
  const auto entry = static_cast<std::size_t>(index);
  (isSource ? delimitedFormats_.chosenSource : delimitedFormats_.chosenTarget) = entry;
  (isSource ? selections_.run.sourceDelimited : selections_.run.targetDelimited) = delimitedFormats_.table[entry];
}

void frmTovak::editLayouts(formats::EditorPurpose purpose) {
  frmTovakComDel(delimitedFormats_, purpose, selections_.run, start_.definitionsFile, this).exec();
  refresh();
}

void frmTovak::typeProjection(const SideWidgets& side, const QString& text) {
  QString shown = toQString(selection::typeProjection(selections_, side.side, text.toStdString()));
  const bool metres = settingsOf(side.side).metres;
  followProject();
  if (settingsOf(side.side).metres != metres) shown = toQString(settingsOf(side.side).projectionText);
  if (shown != text) side.projection->setText(shown);
  const qsizetype mark = shown.indexOf('M', 0, Qt::CaseInsensitive);
  if (mark >= 0) side.projection->setCursorPosition(static_cast<int>(mark));
  (settingsOf(side.side).metres ? side.metric : side.english)->setChecked(true);
  showSystem(side);
  refreshOptions();
  refreshEnabled();
}

void frmTovak::chooseSystem(const SideWidgets& side) {
  frmTovakSystems list(engine_, selection::projectionBox(selections_, side.side).code, this);
  if (list.exec() != QDialog::Accepted || !list.code()) return;
  selection::pickProjection(selections_, side.side, *list.code());
  refresh();
}

/// False when no file was chosen.
bool frmTovak::browse(const SideWidgets& side) {
  const bool isSource = side.side == Side::Source;
  const QString name = askForFile(this, isSource ? tr("Source File Name") : tr("Target File Name"), folder_, !isSource);
  if (name.isEmpty()) return false;
  folder_ = QFileInfo(name).absolutePath();
  if (isSource) {
    takeSourceFile(name);
  } else {
    selections_.run.target.fileName = name.toStdString();
    refresh();
  }
  return true;
}

void frmTovak::browseReport() {
  const QString name = askForFile(this, tr("Report File Name"), folder_, true);
  if (name.isEmpty()) return;
  selections_.run.reportFileName = name.toStdString();
  refresh();
}

void frmTovak::openReport(void (*use)(QWidget*, report::ReportSheets&)) {
  const QFileInfo current(toQString(selections_.run.reportFileName));
  const bool there = current.isFile();
  const QString name = askForFile(this, tr("Report File to Print"), there ? current.absolutePath() : folder_, false,
                                  there ? current.fileName() : QString());
  if (name.isEmpty()) return;
  report::ReportSheets sheets(name.toStdString());
  use(this, sheets);
}

void frmTovak::takeSourceFile(const QString& name) {
  selections_.run.source.fileName = name.toStdString();
  if (selections_.run.sourceFormat == run::source::GeodeticCsv) return chooseDatabase();
  statusBar()->clearMessage();
  if (selection::presetFromFile(selections_, selections_.run.source.fileName)) {
    statusBar()->showMessage(tr("Projection, units and adjustment were taken from the file's first line."));
  }
  refresh();
}

void frmTovak::openProject() {
  frmTovakProject(engine_, this).exec();
  refresh();
}

void frmTovak::openHelp() {
  if (help_ == nullptr) help_ = std::make_unique<HelpWindow>(QApplication::applicationDirPath() + "/Tovak.hlp");
  QString problem;
  if (!help_->open(&problem)) showMessage(this, run::systemMessage(problem.toStdString()));
}

void frmTovak::completeStart() {
  for (const run::Message& message : start_.messages) showMessage(this, message);
  if (selections_.run.sourceFormat == run::source::GeodeticCsv) chooseDatabase();
}

void frmTovak::execute() {
  if (running_) return;
  statusBar()->clearMessage();
  run::RunSettings settings = selection::runSettings(selections_, start_.formatTables);
  run::RunResult result;
  std::string focus;
  setRunning(true);
  {
    const WaitCursor wait;
    WindowPerson person(*this, settings, engine_, [this](std::uint64_t records) { paintProgress(records); });
    result = start_.convert(settings, engine_, start_.formatTables, person);
    focus = person.focus();
  }
  // What was pressed meanwhile goes to controls that do not answer.
  QApplication::processEvents();
  setRunning(false);
  selection::takeBack(selections_, settings);
  refresh();
  if (!focus.empty()) findChild<QWidget*>(toQString(focus))->setFocus();
  if (recordsRead(result.counts) == 0) return;
  statusBar()->showMessage(toQString(app::accountLine(result.counts)));
}

void frmTovak::paintProgress(std::uint64_t records) {
  form_->lblProgress->setText(tr("%L1 points").arg(records));
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmTovak::setRunning(bool running) {
  running_ = running;
  for (QWidget* const part : {static_cast<QWidget*>(form_->grpSource), static_cast<QWidget*>(form_->grpTarget),
                              static_cast<QWidget*>(form_->grpOptions), static_cast<QWidget*>(form_->grpReport),
                              static_cast<QWidget*>(form_->menubar), static_cast<QWidget*>(form_->cmdExecute),
                              static_cast<QWidget*>(form_->cmdClose)}) {
    part->setEnabled(!running);
  }
  form_->lblProgress->clear();
  form_->prgRun->setVisible(running);
  form_->lblProgress->setVisible(running);
}

void frmTovak::closeEvent(QCloseEvent* event) {
  event->setAccepted(!running_);
  if (!running_) help_.reset();
}

void frmTovak::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && form_->grpSource != nullptr && sides_[0].system != nullptr) {
    for (const SideWidgets& side : sides_) showSystem(side);
  }
}

}  // namespace tovak::ui
