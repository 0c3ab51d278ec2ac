#include "ui/tovak_project.h"

#include <QScreen>
#include <string>

#include "run/projection_box.h"
#include "run/projection_code.h"
#include "run/run_messages.h"
#include "ui/help_key.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"
#include "ui_tovak_project.h"

namespace tovak::ui {

frmTovakProject::frmTovakProject(run::ConversionEngine& engine, QWidget* parent,
                                 const std::optional<run::UserProject>& ofJob)
    : QDialog(parent), ui_(std::make_unique<Ui::frmTovakProject>()), engine_(engine) {
  ui_->setupUi(this);
  helpOnF1(*this, "project");
  resize(size().boundedTo(screen()->availableSize()));
  load(ofJob);
  connect(ui_->txtProjectName, &QLineEdit::textChanged, this, &frmTovakProject::check);
  connect(ui_->txtDefinition, &QPlainTextEdit::textChanged, this, &frmTovakProject::check);
  connect(ui_->btnProjectMetric, &QRadioButton::toggled, this, &frmTovakProject::check);
  connect(ui_->cmdStore, &QPushButton::clicked, this, &frmTovakProject::store);
  connect(ui_->cmdReturn, &QPushButton::clicked, this, &QDialog::reject);
}

frmTovakProject::~frmTovakProject() = default;

/// The stored project; a fault in its file is shown until something is typed.
void frmTovakProject::load(const std::optional<run::UserProject>& ofJob) {
  const text::Result<std::optional<run::UserProject>> stored = run::readUserProject(run::userProjectFile());
  const run::UserProject project = ofJob.value_or(stored.value.value_or(std::nullopt).value_or(run::UserProject()));
  ui_->txtProjectName->setText(toQString(project.name));
  ui_->txtDefinition->setPlainText(toQString(project.definition));
  (project.metres ? ui_->btnProjectMetric : ui_->btnProjectEnglish)->setChecked(true);
  check();
  if (!stored.error.empty() && !ofJob) ui_->lblWhereabouts->setText(toQString(stored.error));
}

run::UserProject frmTovakProject::typed() const {
  // WKT is often spread over several lines; the file has one.
  return {.name = ui_->txtProjectName->text().trimmed().toStdString(),
          .definition = ui_->txtDefinition->toPlainText().simplified().toStdString(),
          .metres = ui_->btnProjectMetric->isChecked(),
          .datum = datum_};
}

void frmTovakProject::check() {
  const run::UserProject project = typed();
  std::string told = tr("Type a name and a definition.").toStdString();
  bool usable = false;
  if (!project.definition.empty()) {
    usable = engine_.GetProjectionFromText(run::definitionRequest(project), told) == run::kUserDefinedProject;
    if (const std::string fault = run::faultOf(project); usable && !fault.empty()) {
      usable = false;
      told += "\n" + tr("Not to be stored yet: ").toStdString() + fault + '.';
    }
  }
  datum_ = run::toldDatum(told);
  if (followUnit(run::toldFeet(told))) return;
  ui_->lblWhereabouts->setText(toQString(told));
  ui_->cmdStore->setEnabled(usable);
}

/// A definition in feet brings its unit along; one that takes its place gives back the choice, and what was chosen
/// before. True when the unit has changed and everything was told anew.
bool frmTovakProject::followUnit(bool feet) {
  if (feet == definitionInFeet_) return false;
  definitionInFeet_ = feet;
  ui_->btnProjectMetric->setEnabled(!feet);
  if (feet) chosenMetres_ = ui_->btnProjectMetric->isChecked();
  if (!chosenMetres_) return false;
  (feet ? ui_->btnProjectEnglish : ui_->btnProjectMetric)->setChecked(true);
  return true;
}

void frmTovakProject::store() {
  std::string error;
  if (run::writeUserProject(run::userProjectFile(), typed(), error)) return accept();
  showMessage(this, run::systemMessage(error));
}

}  // namespace tovak::ui
