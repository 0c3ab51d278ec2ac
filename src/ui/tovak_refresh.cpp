// The main window's controls as the selections have them.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <utility>

#include "run/format_index.h"
#include "run/projection_box.h"
#include "run/projection_code.h"
#include "selection/enabled_controls.h"
#include "ui/qt_text.h"
#include "ui/tovak.h"
#include "ui/window_person.h"
#include "ui_tovak.h"

namespace tovak::ui {

using selection::Side;

/// The user-defined project has a unit of its own, which is that of every side it is chosen for. An agency batch run
/// takes no system from the boxes, and its unit is the person's choice.
void frmTovak::followProject() {
  if (selection::isAgencyRun(selections_, start_.formatTables)) return;
  for (const SideWidgets& side : sides_) {
    if (selection::projectionBox(selections_, side.side).code != run::kUserDefinedProject) continue;
    const std::string project = engine_.GetProjectionData(-run::kUserDefinedProject);
    const std::size_t separator = project.find('~');
    if (separator == std::string::npos) continue;
    selection::chooseUnit(selections_, side.side, run::marksMetres(std::string_view(project).substr(separator)));
  }
}

void frmTovak::refresh() {
  followProject();
  for (const SideWidgets& side : sides_) refreshSide(side);
  refreshOptions();
  refreshDatabase();
  refreshEnabled();
}

void frmTovak::refreshSide(const SideWidgets& side) {
  const run::RunSettings& settings = selections_.run;
  const run::SideSettings& ofSide = settingsOf(side.side);
  side.format->setCurrentIndex(side.side == Side::Source ? settings.sourceFormat : settings.targetFormat);
  if (side.projection->text() != toQString(ofSide.projectionText))
    side.projection->setText(toQString(ofSide.projectionText));
  (ofSide.metres ? side.metric : side.english)->setChecked(true);
  if (side.file->text() != toQString(ofSide.fileName)) side.file->setText(toQString(ofSide.fileName));
  refreshLayouts(side);
  showSystem(side);
}

/// A format stays the side's after its entry was changed or removed, until one is chosen again: then the list shows its
/// name and no entry.
void frmTovak::refreshLayouts(const SideWidgets& side) {
  const bool isSource = side.side == Side::Source;
  const std::size_t chosen = isSource ? delimitedFormats_.chosenSource : delimitedFormats_.chosenTarget;
  const run::DelimitedFormat& current = isSource ? selections_.run.sourceDelimited : selections_.run.targetDelimited;
  side.layout->clear();
  side.layout->setPlaceholderText(tr("%1 (as it was chosen)").arg(toQString(current.name)));
  for (const run::DelimitedFormat& format : delimitedFormats_.table) side.layout->addItem(toQString(format.name));
  side.layout->setCurrentIndex(delimitedFormats_.table[chosen] == current ? static_cast<int>(chosen) : -1);
}

void frmTovak::showSystem(const SideWidgets& side) {
  const std::int16_t code = selection::projectionBox(selections_, side.side).code;
  const QString name = systemName(engine_, code);
  QString problem = name.isEmpty() ? tr("The conversion engine does not know this number") : QString();
  if (code == run::kUserDefinedProject) {
    const QString project = toQString(engine_.GetProjectionData(-run::kUserDefinedProject));
    if (!project.contains('~')) problem = project;
  }
  side.system->setText(name.isEmpty() ? tr("unknown projection") : name);
  side.system->setToolTip(problem.isEmpty() ? name : problem);
  // Red that stands out from the palette's own background, be it light or dark.
  const bool dark = palette().color(QPalette::Window).lightness() < 128;
  QPalette colours = palette();
  if (!problem.isEmpty()) colours.setColor(QPalette::WindowText, dark ? QColor(255, 120, 110) : QColor(180, 0, 0));
  side.system->setPalette(colours);
}

void frmTovak::refreshOptions() {
  const run::RunSettings& settings = selections_.run;
  const Ui::frmTovak& f = *form_;
  QRadioButton* const adjustments[] = {f.adjNonebtn, f.adj86btn, f.adj96btn, f.adj07btn, f.adj11btn};
  adjustments[static_cast<std::size_t>(settings.adjustment)]->setChecked(true);
  QRadioButton* const form = settings.latLongForm == text::AngleForm::DecimalDegrees          ? f.btnDD
                             : settings.latLongForm == text::AngleForm::DegreesDecimalMinutes ? f.btnDM
                                                                                              : f.btnDMS;
  form->setChecked(true);
  f.lstAccuracy->setCurrentIndex(settings.accuracy);
  (settings.verticalDatum == run::VerticalDatum::Navd88 ? f.btnNavd88 : f.btnNgvd29)->setChecked(true);
  f.txtNextNumber->setText(QString::number(settings.NextPointNumber));
  f.txtIncrement->setText(QString::number(settings.PointNumberIncrement));
  f.chkAllowBlank->setChecked(settings.allowBlankPointNumbers);
  f.ChkSuppress->setChecked(!settings.reportEnabled);
  (settings.appendReport ? f.btnAppend : f.btnOverwrite)->setChecked(true);
  f.chkPrint->setChecked(settings.printReport);
  if (f.txtPrintFile->text() != toQString(settings.reportFileName))
    f.txtPrintFile->setText(toQString(settings.reportFileName));
}

void frmTovak::refreshEnabled() {
  const selection::EnabledControls enabled = selection::enabledControls(selections_, start_.formatTables);
  const Ui::frmTovak& f = *form_;
  const bool sourceDelimited = selections_.run.sourceFormat == run::source::CommaDelimited;
  const bool targetDelimited = selections_.run.targetFormat == run::target::CommaDelimited;
  f.mnuFileSourceLayout->setEnabled(sourceDelimited);
  f.mnuFileTargetLayout->setEnabled(targetDelimited);
  const std::pair<QWidget*, bool> states[] = {
      {f.frameSourceFile, enabled.sourceFile},
      {f.frameTargetFile, enabled.targetFile},
      {f.frameSrcMapPrj, enabled.sourceProjection},
      {f.frameTrgMapPrj, enabled.targetProjection},
      {f.frameSourceUnits, enabled.sourceUnits},
      {f.frameTargetUnits, enabled.targetUnits},
      {f.lstSourceLayout, sourceDelimited},
      {f.cmdSourceLayout, sourceDelimited},
      {f.lstTargetLayout, targetDelimited},
      {f.cmdTargetLayout, targetDelimited},
      {f.frameLLfmt, enabled.latLongForm},
      {f.frameAdjustment, enabled.ordinaryOptions},
      {f.frameVertical, enabled.verticalDatum},
      {f.frameNumbering, enabled.ordinaryOptions},
      {f.txtNextNumber, enabled.nextNumber},
      {f.txtIncrement, enabled.nextNumber},
      {f.cmdNumbering, enabled.nextNumber},
      {f.ChkSuppress, enabled.ordinaryOptions},
      {f.frameReport, enabled.report},
      {f.txtPrintFile, enabled.report},
      {f.cmdReportBrowse, enabled.report},
      {f.txtDescription, enabled.report},
  };
  for (const auto& [widget, on] : states) widget->setEnabled(on);
  f.frameSrcCsvPrj->setVisible(enabled.database);
  f.txCsvtSrcFile->setVisible(enabled.database);
  f.frameSrcMapPrj->setVisible(!enabled.database);
  f.lblSourceProjection->setVisible(!enabled.database);
  f.txtSourceFile->setVisible(!enabled.database);
  f.lblSourceFile->setBuddy(enabled.database ? f.txCsvtSrcFile : f.txtSourceFile);
}

}  // namespace tovak::ui
