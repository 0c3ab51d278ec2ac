// The main window's selections as a document: opening, saving and leaving jobs, and the command line that says the
// same.
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QRadioButton>
#include <QStatusBar>
#include <algorithm>
#include <utility>

#include "app/command_text.h"
#include "run/run_messages.h"
#include "run/system_data.h"
#include "selection/job_file.h"
#include "selection/job_use.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"
#include "ui/tovak.h"
#include "ui/wait_cursor.h"
#include "ui_tovak.h"

namespace tovak::ui {
namespace {

constexpr const char* kTitle = "Job";

run::Message jobMessage(const std::string& text) {
  return {.text = text, .title = kTitle, .icon = run::Icon::Exclamation};
}

/// The position of a layout in the table, or `otherwise`.
std::size_t entryOf(const formats::delimited::DelimitedFormatTable& table, const run::DelimitedFormat& layout,
                    std::size_t otherwise) {
  const auto entry = std::ranges::find(table, layout);
  return entry == table.end() ? otherwise : static_cast<std::size_t>(entry - table.begin());
}

}  // namespace

void frmTovak::connectJobs() {
  const Ui::frmTovak& f = *form_;
  connect(f.mnuFileOpenJob, &QAction::triggered, this, &frmTovak::openJob);
  connect(f.mnuFileSaveJob, &QAction::triggered, this, &frmTovak::saveJob);
  connect(f.mnuFileSaveJobAs, &QAction::triggered, this, &frmTovak::saveJobAs);
  connect(f.mnuFileCommand, &QAction::triggered, this, &frmTovak::copyCommand);
  // These change nothing of the preview, with which the title is brought up to date otherwise.
  const auto follow = [this] { setWindowModified(jobChanged()); };
  for (QAbstractButton* const button :
       {static_cast<QAbstractButton*>(f.btnAppend), static_cast<QAbstractButton*>(f.btnOverwrite),
        static_cast<QAbstractButton*>(f.chkPrint)}) {
    connect(button, &QAbstractButton::clicked, this, follow);
  }
  connect(f.txtDescription, &QLineEdit::textEdited, this, follow);
}

/// The window opens with a job, whose settings the command line may have changed.
void frmTovak::beginJob() {
  jobFile_ = toQString(start_.jobFile);
  std::string toldLater;
  run::giveProject(engine_, selections_.run.project, toldLater);
  const selection::Selections now = selections_;
  selections_ = selection::selectionsFrom(start_.job->settings, start_.formatTables);
  keptJob_ = jobTextNow().value.value_or(std::string());
  selections_ = now;
  selections_.run.sourceDelimited = start_.settings.sourceDelimited;
  selections_.run.targetDelimited = start_.settings.targetDelimited;
  takeLayouts();
  showJobTitle();
}

/// Shows what of a job the refreshing of the window does not, and makes those choices again that depend on the engine
/// and on other files.
void frmTovak::resumeJob(const selection::Job& job) {
  form_->txtDescription->setText(toQString(selections_.run.reportDescription));
  std::string told;
  if (!run::giveProject(engine_, selections_.run.project, told))
    showMessage(this, run::messages::projectUnusable(told));
  std::optional<run::Message> missing;
  {
    const WaitCursor wait;
    missing = selection::resumeDatabase(selections_, start_.formatTables);
  }
  refresh();
  showAllGroups();
  for (const std::optional<run::Message>& problem : {missing, selection::otherSystem(job, engine_)}) {
    if (problem) showMessage(this, *problem);
  }
}

void frmTovak::takeLayouts() {
  const auto& table = delimitedFormats_.table;
  std::size_t& source = delimitedFormats_.chosenSource;
  std::size_t& target = delimitedFormats_.chosenTarget;
  source = entryOf(table, selections_.run.sourceDelimited, source);
  target = entryOf(table, selections_.run.targetDelimited, target);
}

void frmTovak::openJob() {
  const QString name = QFileDialog::getOpenFileName(this, tr("Open Job"), folder_, tr("Jobs (*.tovak);;All Files (*)"));
  if (!name.isEmpty()) openJobFile(name);
}

void frmTovak::openJobFile(const QString& name) {
  const text::Result<selection::Job> job = selection::readJob(name.toStdString(), start_.formatTables);
  if (!job) {
    showMessage(this, jobMessage(job.error));
    return;
  }
  if (!mayLeaveJob()) return;
  folder_ = QFileInfo(name).absolutePath();
  selections_ = selection::selectionsFrom(job->settings, start_.formatTables);
  if (selections_.run.reportFileName.empty()) selections_.run.reportFileName = start_.dailyReport;
  takeLayouts();
  statusBar()->clearMessage();
  resumeJob(*job);
  keepJob(name);
}

/// The selections are the job's from now on.
void frmTovak::keepJob(const QString& name) {
  jobFile_ = QFileInfo(name).absoluteFilePath();
  keptJob_ = jobTextNow().value.value_or(std::string());
  showJobTitle();
  setWindowModified(false);
}

void frmTovak::showJobTitle() {
  const QString program = "Tovak  Version " + toQString(start_.version);
  setWindowTitle(jobFile_.isEmpty() ? program : QFileInfo(jobFile_).fileName() + "[*] - " + program);
}

/// The report of the day has no name in a job: its name is that of another day tomorrow.
run::RunSettings frmTovak::settingsForJob() {
  run::RunSettings settings = selection::runSettings(selections_, start_.formatTables);
  if (settings.reportFileName == start_.dailyReport) settings.reportFileName.clear();
  return settings;
}

text::Result<std::string> frmTovak::jobTextNow() {
  const text::Result<selection::Job> job = selection::jobOf(settingsForJob(), engine_);
  if (!job) return text::Result<std::string>::failure(job.error);
  return selection::jobText(*job, jobFile_.toStdString(), start_.formatTables);
}

bool frmTovak::jobChanged() {
  return !jobFile_.isEmpty() && jobTextNow().value.value_or(std::string()) != keptJob_;
}

bool frmTovak::saveJob() {
  if (jobFile_.isEmpty()) return saveJobAs();
  const text::Result<selection::Job> job = selection::jobOf(settingsForJob(), engine_);
  std::string error = job.error;
  if (!job || !selection::writeJob(jobFile_.toStdString(), *job, start_.formatTables, error)) {
    showMessage(this, jobMessage(error));
    return false;
  }
  keepJob(jobFile_);
  statusBar()->showMessage(tr("The job is saved."));
  return true;
}

bool frmTovak::saveJobAs() {
  QFileDialog dialog(this, tr("Save Job As"), folder_, tr("Jobs (*.tovak)"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix("tovak");
  if (!jobFile_.isEmpty()) dialog.selectFile(QFileInfo(jobFile_).fileName());
  if (dialog.exec() != QDialog::Accepted) return false;
  const QString name = dialog.selectedFiles().front();
  if (!selection::isJobName(name.toStdString())) {
    showMessage(this, jobMessage("The name of a job ends in \".tovak\"."));
    return false;
  }
  folder_ = QFileInfo(name).absolutePath();
  const QString before = std::exchange(jobFile_, name);
  if (saveJob()) return true;
  jobFile_ = before;
  return false;
}

/// Asks about a changed job. False: the person stays with it.
bool frmTovak::mayLeaveJob() {
  if (!jobChanged()) return true;
  const run::Answer answer =
      askOrCancel(this, {.text = tr("%1 was changed.\nSave it?").arg(QFileInfo(jobFile_).fileName()).toStdString(),
                         .title = kTitle,
                         .icon = run::Icon::Question});
  return answer == run::Answer::No || (answer == run::Answer::Yes && saveJob());
}

/// A saved job says everything, the report too.
void frmTovak::copyCommand() {
  const bool kept = !jobFile_.isEmpty() && !jobChanged();
  const run::RunSettings settings = selection::runSettings(selections_, start_.formatTables);
  const text::Result<std::string> command =
      kept ? app::jobCommandText(jobFile_.toStdString()) : app::commandText(settings, start_.formatTables);
  if (!command) {
    showMessage(this, {.text = "No command line says the same. Save the selections as a job: its command line does.",
                       .title = "Save as Command",
                       .icon = run::Icon::Information,
                       .detail = command.error});
    return;
  }
  QApplication::clipboard()->setText(toQString(*command));
  const QString report = !kept && settings.reportEnabled ? tr(" It writes no report; that of a saved job does.") : "";
  statusBar()->showMessage(tr("On the clipboard: %1.").arg(toQString(*command)) + report);
}

}  // namespace tovak::ui
