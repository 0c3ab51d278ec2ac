#include "ui/tovak.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QScreen>
#include <QSettings>

#include "run/account_lines.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "run/projection_box.h"
#include "run/projection_code.h"
#include "run/run_messages.h"
#include "run/system_data.h"
#include "selection/suggestions.h"
#include "ui/ask_for_file.h"
#include "ui/help_key.h"
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

/// Qt's file dialog remembers its folders for the next start. Tovak stores nothing of a session: the settings go where
/// no file can be created.
void storeNoDialogSettings() {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

}  // namespace

frmTovak::frmTovak(const app::WindowStart& start, QWidget* parent)
    : QMainWindow(parent),
      start_(start),
      engine_(*start.engine),
      selections_(selection::selectionsFrom(start.settings, start.formatTables)),
      delimitedFormats_({.table = start.delimitedFormats, .saved = start.delimitedFormats}),
      form_(std::make_unique<Ui::frmTovak>()),
      folder_(toQString(start.workingFolder.string())) {
  storeNoDialogSettings();
  form_->setupUi(this);
  showJobTitle();
  makeSides();
  fillLists();
  for (const SideWidgets& side : sides_) chooseLayout(side, 0);
  for (SideWidgets& side : sides_) connectSide(side);
  connectDatabase();
  connectOptions();
  connectReport();
  connectMenus();
  connectPreview();
  connectJobs();
  connectResult();
  if (start.job) beginJob();
  setRunning(false);
  showMore(false);
  form_->cmdMore->setChecked(unusualOptions_);
  refresh();
  form_->lstSourceFormat->setFocus();
  resize(sizeWithoutScrolling().boundedTo(screen()->availableSize()));
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
  // Nobody has published the layout of these files.
  const std::pair<QComboBox*, int> unavailable[] = {{form_->lstSourceFormat, run::source::KrvBatch},
                                                    {form_->lstTargetFormat, run::target::KrvBatch}};
  for (const auto& [list, index] : unavailable)
    list->setItemData(index, tr("%1 (not available)").arg(list->itemText(index)), Qt::ToolTipRole);
  for (SideWidgets& side : sides_) side.formatTip = side.format->toolTip();
  for (const char* const accuracy : kAccuracies) form_->lstAccuracy->addItem(accuracy);
  for (QComboBox* const list : findChildren<QComboBox*>()) {
    // Otherwise the wheel would move the focus to the list and change its choice.
    list->setFocusPolicy(Qt::StrongFocus);
    list->installEventFilter(this);
  }
}

const run::SideSettings& frmTovak::settingsOf(Side side) {
  return side == Side::Source ? selections_.run.source : selections_.run.target;
}

void frmTovak::chooseSourceFormat(int index) {
  if (start_.formatTables.sources[static_cast<std::size_t>(index)].fromDatabase) {
    selection::beginDatabase(selections_, start_.formatTables);
    const bool fileChosen = selection::fileName(selections_, Side::Source).empty() && browse(sides_[0]);
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
  selection::chooseLayout(selections_, side.side, delimitedFormats_.table[entry]);
  schedulePreview();
}

void frmTovak::editLayouts(formats::delimited::EditorPurpose purpose) {
  frmTovakComDel(delimitedFormats_, purpose, selections_.run, start_.definitionsFile, this).exec();
  refresh();
}

void frmTovak::typeProjection(const SideWidgets& side, const QString& text) {
  QString shown = toQString(selection::typeProjection(selections_, side.side, text.toStdString(), side.numberSelected));
  const bool metres = settingsOf(side.side).metres;
  followForcedUnits();
  if (settingsOf(side.side).metres != metres) shown = toQString(settingsOf(side.side).projectionText);
  if (shown != text) side.projection->setText(shown);
  // What is typed goes before the mark of metres; an "m" of a name is none.
  const bool named = run::namesSystem(text.toStdString());
  const qsizetype mark = named && shown != text ? shown.size() - 1 : shown.indexOf('M', 0, Qt::CaseInsensitive);
  if (mark >= 0 && (!named || shown != text)) side.projection->setCursorPosition(static_cast<int>(mark));
  (settingsOf(side.side).metres ? side.metric : side.english)->setChecked(true);
  showSystem(side);
  refreshOptions();
  refreshEnabled();
  schedulePreview();
}

void frmTovak::chooseSystem(const SideWidgets& side) {
  const run::ProjectionBox box = selection::projectionBox(selections_, side.side);
  QString search;
  if (box.code == run::kNoProjection) {
    search = side.projection->text();
    if (box.metres && search.endsWith('M')) search.chop(1);
  }
  frmTovakSystems list(engine_, box.code, search, this);
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
    // The dialog has already asked whether an older file may be replaced.
    ownTargets_.insert(name.toStdString());
    selection::nameFile(selections_, Side::Target, name.toStdString());
    refresh();
  }
  return true;
}

void frmTovak::browseReport() {
  const QString name = askForFile(this, tr("Report File Name"), folder_, true);
  if (name.isEmpty()) return;
  selection::nameReport(selections_, name.toStdString());
  refresh();
}

void frmTovak::openReport(const QString& title, void (*use)(QWidget*, report::ReportSheets&)) {
  const QFileInfo current(toQString(selections_.run.reportFileName));
  const bool there = current.isFile();
  const QString name =
      askForFile(this, title, there ? current.absolutePath() : folder_, false, there ? current.fileName() : QString());
  if (name.isEmpty()) return;
  report::ReportSheets sheets(name.toStdString());
  use(this, sheets);
}

void frmTovak::takeSourceFile(const QString& name) {
  selection::nameFile(selections_, Side::Source, name.toStdString());
  if (selection::usesDatabase(selections_, start_.formatTables)) return chooseDatabase();
  statusBar()->clearMessage();
  const selection::TakenFile taken = selection::takeSourceFile(selections_, suggestionTools());
  followSourceLayout();
  if (selection::usesDatabase(selections_, start_.formatTables)) return chooseDatabase();
  QStringList told;
  if (taken.format) told += tr("The format was taken from the file's content.");
  if (taken.system) told += tr("Projection, units and adjustment were taken from the file's first line.");
  statusBar()->showMessage(told.join(' '));
  refresh();
}

void frmTovak::openProject() {
  if (frmTovakProject(engine_, this, selections_.run.project).exec() == QDialog::Accepted) {
    // What was stored takes the place of a job's.
    selections_.run.project.reset();
    std::string told;
    run::giveProject(engine_, {}, told);
  }
  refresh();
}

void frmTovak::openHelp() {
  if (help_ == nullptr) help_ = std::make_unique<HelpWindow>(helpFile());
  QString problem;
  if (!help_->open(&problem)) showMessage(this, run::systemMessage(problem.toStdString()));
}

void frmTovak::completeStart() {
  for (const run::Message& message : start_.messages) showMessage(this, message);
  if (start_.job) return resumeJob(*start_.job);
  if (selection::usesDatabase(selections_, start_.formatTables)) chooseDatabase();
}

void frmTovak::execute() {
  if (running_) return;
  for (const SideWidgets& side : sides_) commitFormat(side);
  statusBar()->clearMessage();
  auto finished = std::make_unique<FinishedRun>();
  run::RunSettings& settings = finished->settings;
  settings = selection::runSettings(selections_, start_.formatTables);
  run::RunResult& result = finished->result;
  run::PointSample sample;
  std::string focus;
  setRunning(true);
  previewTimer_.stop();
  {
    const WaitCursor wait;
    const QString suggestion = suggestions_.empty() ? QString() : toQString(suggestions_.front().label);
    WindowPerson person(*this, settings, engine_, {.ownTargets = ownTargets_, .suggestion = suggestion},
                        [this](const run::Reached& reached) { return showProgress(reached); });
    result = run::convert(settings, engine_, start_.formatTables,
                          {.person = person,
                           .typedPoints = &person,
                           .screen = &person,
                           .progress = &person,
                           .sample = &sample,
                           .keptLines = run::kListedLines});
    focus = person.focus();
    if (result.outcome != run::RunOutcome::Cancelled) finished->grid = person.takeGrid();
    lookBack(*finished, sample);
  }
  // Keys and clicks made meanwhile go to controls that do not respond.
  QApplication::processEvents();
  setRunning(false);
  if (result.target == run::TargetState::Written) ownTargets_.insert(result.targetName);
  selection::takeBack(selections_, settings);
  refresh();
  if (auto* const faulty = focus.empty() ? nullptr : findChild<QWidget*>(toQString(focus))) {
    bringOut(*faulty);
    faulty->setFocus();
  }
  afterRun_ = selection::runSettings(selections_, start_.formatTables);
  if (recordsRead(result.counts) == 0 && result.outcome != run::RunOutcome::Cancelled) return;
  QStringList account;
  for (const std::string& line : accountLines(result)) account += toQString(line);
  statusBar()->showMessage(account.join(". "));
  lastRun_ = std::move(finished);
  form_->preview->showResult(*lastRun_);
}

void frmTovak::setRunning(bool running) {
  running_ = running;
  for (QWidget* const part : {static_cast<QWidget*>(form_->grpSource), static_cast<QWidget*>(form_->grpTarget),
                              static_cast<QWidget*>(form_->grpOptions), static_cast<QWidget*>(form_->grpReport),
                              static_cast<QWidget*>(form_->preview), static_cast<QWidget*>(form_->menubar),
                              static_cast<QWidget*>(form_->cmdExecute), static_cast<QWidget*>(form_->cmdClose),
                              static_cast<QWidget*>(form_->cmdSwap), static_cast<QWidget*>(form_->cmdMore)}) {
    part->setEnabled(!running);
  }
  stopWanted_ = false;
  form_->lblProgress->clear();
  form_->prgRun->setRange(0, 0);
  for (QWidget* const part : {static_cast<QWidget*>(form_->prgRun), static_cast<QWidget*>(form_->cmdStop),
                              static_cast<QWidget*>(form_->lblProgress)}) {
    part->setVisible(running);
  }
}

/// Called when a dialog has closed, whatever it changed.
bool frmTovak::event(QEvent* event) {
  if (event->type() == QEvent::WindowUnblocked) schedulePreview();
  return QMainWindow::event(event);
}

void frmTovak::closeEvent(QCloseEvent* event) {
  const bool closes = !running_ && mayLeaveJob();
  event->setAccepted(closes);
  if (closes) help_.reset();
}

void frmTovak::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && form_->grpSource != nullptr && sides_[0].system != nullptr) {
    for (const SideWidgets& side : sides_) showSystem(side);
  }
}

}  // namespace tovak::ui
