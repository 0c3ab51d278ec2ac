// Brings the main window's controls into line with the selections.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <utility>

#include "run/projection_box.h"
#include "run/projection_code.h"
#include "run/system_data.h"
#include "selection/enabled_controls.h"
#include "ui/qt_text.h"
#include "ui/tovak.h"
#include "ui/window_person.h"
#include "ui_tovak.h"

namespace tovak::ui {

using selection::Side;

/// Some formats fix the unit of the target. The user-defined project has a unit of its own, which applies to every side
/// that uses it. An agency batch run ignores the system boxes, and its unit is the person's choice.
void frmTovak::followForcedUnits() {
  selection::takeForcedUnit(selections_, start_.formatTables);
  if (selection::isAgencyRun(selections_, start_.formatTables)) return;
  for (const SideWidgets& side : sides_) {
    if (selection::projectionBox(selections_, side.side).code != run::kUserDefinedProject) continue;
    const run::ProjectData project = run::projectData(engine_);
    if (project.usable()) selection::chooseUnit(selections_, side.side, run::marksMetres(project.projectionText));
  }
}

void frmTovak::refresh() {
  followForcedUnits();
  for (const SideWidgets& side : sides_) refreshSide(side);
  refreshOptions();
  refreshDatabase();
  refreshEnabled();
  refreshMore();
  schedulePreview();
}

void frmTovak::refreshSide(const SideWidgets& side) {
  const run::RunSettings& settings = selections_.run;
  const run::SideSettings& ofSide = settingsOf(side.side);
  side.format->setCurrentIndex(side.side == Side::Source ? settings.sourceFormat : settings.targetFormat);
  const QString ownTip = side.format->currentData(Qt::ToolTipRole).toString();
  side.format->setToolTip(plainTip(ownTip.isEmpty() ? side.formatTip : ownTip));
  if (side.projection->text() != toQString(ofSide.projectionText))
    side.projection->setText(toQString(ofSide.projectionText));
  (ofSide.metres ? side.metric : side.english)->setChecked(true);
  if (side.file->text() != toQString(ofSide.fileName)) side.file->setText(toQString(ofSide.fileName));
  refreshLayouts(side);
  showSystem(side);
}

/// A side keeps its format after the entry was changed or removed, until another is chosen: meanwhile the list shows
/// its name and no entry.
void frmTovak::refreshLayouts(const SideWidgets& side) {
  const bool isSource = side.side == Side::Source;
  const std::size_t chosen = isSource ? delimitedFormats_.chosenSource : delimitedFormats_.chosenTarget;
  const run::DelimitedFormat& current = selection::layoutOf(selections_, side.side);
  side.layout->clear();
  side.layout->setPlaceholderText(tr("%1 (as it was chosen)").arg(toQString(current.name)));
  for (const run::DelimitedFormat& format : delimitedFormats_.table) side.layout->addItem(toQString(format.name));
  side.layout->setCurrentIndex(delimitedFormats_.table[chosen] == current ? static_cast<int>(chosen) : -1);
}

/// Why a run would not accept the system with this code and name; empty when it would.
QString frmTovak::projectionProblem(std::int16_t code, const QString& name) {
  if (code == run::kNoProjection) return tr("This text holds no number");
  if (code == run::kUserDefinedProject) {
    const run::ProjectData project = run::projectData(engine_);
    if (!project.usable()) return toQString(project.name);
  }
  return name.isEmpty() ? tr("The conversion engine does not know this number") : QString();
}

void frmTovak::showSystem(const SideWidgets& side) {
  const std::int16_t code = selection::projectionBox(selections_, side.side).code;
  const QString name = code == run::kNoProjection ? QString() : toQString(run::systemName(engine_, code));
  const QString problem = projectionProblem(code, name);
  side.system->setText(name.isEmpty() ? tr("unknown projection") : name);
  side.system->setToolTip(plainTip(problem.isEmpty() ? name : problem));
  // A red that stands out from the palette's own background, light or dark.
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
  f.lstAccuracy->setCurrentIndex(static_cast<int>(settings.accuracy));
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
  f.mnuFileSourceLayout->setEnabled(enabled.sourceLayout);
  f.mnuFileTargetLayout->setEnabled(enabled.targetLayout);
  const std::pair<QWidget*, bool> states[] = {
      {f.frameSourceFile, enabled.sourceFile},
      {f.frameTargetFile, enabled.targetFile},
      {f.frameSrcMapPrj, enabled.sourceProjection},
      {f.frameTrgMapPrj, enabled.targetProjection},
      {f.frameSourceUnits, enabled.sourceUnits},
      {f.frameTargetUnits, enabled.targetUnits},
      {f.lstSourceLayout, enabled.sourceLayout},
      {f.cmdSourceLayout, enabled.sourceLayout},
      {f.lstTargetLayout, enabled.targetLayout},
      {f.cmdTargetLayout, enabled.targetLayout},
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
  const bool form = enabled.latLongForm && !enabled.database;
  for (QWidget* const part : {static_cast<QWidget*>(f.lblLLfmt), f.frameLLfmt}) part->setVisible(form);
  // Units and file name of the two sides stay side by side.
  constexpr int kFormRow = 3;
  f.layTarget->setRowMinimumHeight(kFormRow,
                                   form ? f.frameLLfmt->sizeHint().height() + f.layTarget->verticalSpacing() : 0);
  f.cmdSwap->setEnabled(enabled.swap);
  f.frameSrcCsvPrj->setVisible(enabled.database);
  f.txCsvtSrcFile->setVisible(enabled.database);
  f.frameSrcMapPrj->setVisible(!enabled.database);
  f.lblSourceProjection->setVisible(!enabled.database);
  f.txtSourceFile->setVisible(!enabled.database);
  f.lblSourceFile->setBuddy(enabled.database ? f.txCsvtSrcFile : f.txtSourceFile);
  arrangeSides();
}

}  // namespace tovak::ui
