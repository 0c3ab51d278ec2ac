#include "ui/tovak.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QPalette>
#include <QScreen>
#include <utility>

#include "app/account_line.h"
#include "run/format_index.h"
#include "run/projection_box.h"
#include "run/projection_code.h"
#include "selection/enabled_controls.h"
#include "selection/own_file.h"
#include "text/number.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"
#include "ui/report_printing.h"
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

}  // namespace

frmTovak::frmTovak(const app::WindowStart& start, QWidget* parent)
    : QMainWindow(parent),
      start_(start),
      engine_(*start.engine),
      selections_(selection::selectionsFrom(start.settings)),
      delimitedFormats_({.table = start.delimitedFormats, .saved = start.delimitedFormats}),
      form_(std::make_unique<Ui::frmTovak>()),
      folder_(toQString(start.workingFolder.string())) {
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

void frmTovak::connectSide(const SideWidgets& side) {
  const bool isSource = side.side == Side::Source;
  connect(side.format, &QComboBox::activated, this,
          isSource ? &frmTovak::chooseSourceFormat : &frmTovak::chooseTargetFormat);
  connect(side.layout, &QComboBox::activated, this, [this, &side](int index) { chooseLayout(side, index); });
  connect(side.editLayout, &QPushButton::clicked, this, [this, isSource] {
    editLayouts(isSource ? formats::EditorPurpose::InputFile : formats::EditorPurpose::OutputFile);
  });
  connect(side.projection, &QLineEdit::textEdited, this,
          [this, &side](const QString& text) { typeProjection(side, text); });
  connect(side.projection, &QLineEdit::editingFinished, this, [this, &side] { refreshSide(side); });
  connect(side.choose, &QPushButton::clicked, this, [this, &side] { chooseSystem(side); });
  for (QRadioButton* const button : {side.english, side.metric}) {
    connect(button, &QRadioButton::clicked, this, [this, &side] {
      selection::chooseUnit(selections_, side.side, side.metric->isChecked());
      refresh();
    });
  }
  connect(side.file, &QLineEdit::textEdited, this,
          [this, &side](const QString& text) { settingsOf(side.side).fileName = text.toStdString(); });
  connect(side.browse, &QPushButton::clicked, this, [this, &side] { browse(side); });
  side.file->installEventFilter(this);
}

void frmTovak::connectOptions() {
  const Ui::frmTovak& f = *form_;
  using run::Adjustment;
  const std::pair<QRadioButton*, Adjustment> adjustments[] = {{f.adjNonebtn, Adjustment::None},
                                                              {f.adj86btn, Adjustment::Nad83_1986},
                                                              {f.adj96btn, Adjustment::Nad83_1996},
                                                              {f.adj07btn, Adjustment::Nad83_2007},
                                                              {f.adj11btn, Adjustment::Nad83_2011}};
  for (const auto& [button, adjustment] : adjustments) {
    connect(button, &QRadioButton::clicked, this, [this, chosen = adjustment] {
      selection::chooseAdjustment(selections_, chosen);
      refresh();
    });
  }
  using text::AngleForm;
  const std::pair<QRadioButton*, AngleForm> forms[] = {{f.btnDMS, AngleForm::DegreesMinutesSeconds},
                                                       {f.btnDM, AngleForm::DegreesDecimalMinutes},
                                                       {f.btnDD, AngleForm::DecimalDegrees}};
  for (const auto& [button, form] : forms) {
    connect(button, &QRadioButton::clicked, this, [this, chosen = form] {
      selection::chooseLatLongForm(selections_, chosen);
      refresh();
    });
  }
  connect(f.lstAccuracy, &QComboBox::activated, this, [this](int index) { selections_.run.accuracy = index; });
  connect(f.btnNavd88, &QRadioButton::clicked, this,
          [this] { selections_.run.verticalDatum = run::VerticalDatum::Navd88; });
  connect(f.btnNgvd29, &QRadioButton::clicked, this,
          [this] { selections_.run.verticalDatum = run::VerticalDatum::Ngvd29; });
  connect(f.cmdNumbering, &QPushButton::clicked, this, &frmTovak::openOptions<frmTovakDefPtNo>);
  connect(f.cmdProject, &QPushButton::clicked, this, &frmTovak::openProject);
  connect(f.chkAllowBlank, &QCheckBox::clicked, this, [this](bool allowed) {
    selections_.run.allowBlankPointNumbers = allowed;
    refresh();
  });
}

void frmTovak::connectReport() {
  const Ui::frmTovak& f = *form_;
  connect(f.ChkSuppress, &QCheckBox::clicked, this, [this](bool suppressed) {
    selections_.run.reportEnabled = !suppressed;
    refresh();
  });
  connect(f.btnAppend, &QRadioButton::clicked, this, [this] { selections_.run.appendReport = true; });
  connect(f.btnOverwrite, &QRadioButton::clicked, this, [this] { selections_.run.appendReport = false; });
  connect(f.chkPrint, &QCheckBox::clicked, this, [this](bool print) { selections_.run.printReport = print; });
  connect(f.txtPrintFile, &QLineEdit::textEdited, this,
          [this](const QString& text) { selections_.run.reportFileName = text.toStdString(); });
  connect(f.cmdReportBrowse, &QPushButton::clicked, this, &frmTovak::browseReport);
  connect(f.txtDescription, &QLineEdit::textEdited, this,
          [this](const QString& text) { selections_.run.reportDescription = text.toStdString(); });
}

void frmTovak::connectMenus() {
  const Ui::frmTovak& f = *form_;
  connect(f.cmdExecute, &QPushButton::clicked, this, &frmTovak::execute);
  connect(f.cmdClose, &QPushButton::clicked, this, &QWidget::close);
  connect(f.mnuFileOpen, &QAction::triggered, this, [this] { browse(sides_[0]); });
  connect(f.mnuFileSave, &QAction::triggered, this, [this] { browse(sides_[1]); });
  connect(f.mnuFileSourceLayout, &QAction::triggered, f.cmdSourceLayout, &QPushButton::click);
  connect(f.mnuFileTargetLayout, &QAction::triggered, f.cmdTargetLayout, &QPushButton::click);
  connect(f.mnuFileExecute, &QAction::triggered, this, &frmTovak::execute);
  connect(f.mnuFilePrint, &QAction::triggered, this, [this] { openReport(printReport); });
  connect(f.mnuFilePreview, &QAction::triggered, this, [this] { openReport(previewReport); });
  connect(f.mnuFileExit, &QAction::triggered, this, &QWidget::close);
  connect(f.mnuToolsNumbering, &QAction::triggered, this, &frmTovak::openOptions<frmTovakDefPtNo>);
  connect(f.mnuToolsLayouts, &QAction::triggered, this, [this] { editLayouts(formats::EditorPurpose::Utility); });
  connect(f.mnuToolsProject, &QAction::triggered, this, &frmTovak::openProject);
  connect(f.mnuToolsWaypoints, &QAction::triggered, this, &frmTovak::openOptions<frmTovakWptTxt>);
  connect(f.mnuToolsMaptech, &QAction::triggered, this, &frmTovak::openOptions<frmTovakMaptech>);
  connect(f.mnuToolsDelorme, &QAction::triggered, this, &frmTovak::openOptions<frmTovakDelorme>);
  connect(f.mnuHelpContents, &QAction::triggered, this, &frmTovak::openHelp);
  connect(f.mnuHelpAbout, &QAction::triggered, this, [this] { frmTovakAbout(this).exec(); });
}

run::SideSettings& frmTovak::settingsOf(Side side) {
  return side == Side::Source ? selections_.run.source : selections_.run.target;
}

/// The user-defined project has a unit of its own, which is that of every side it is chosen for.
void frmTovak::followProject() {
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
      {f.frameVertical, enabled.ordinaryOptions},
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
  if (selection::presetFromFile(selections_, selections_.run.source.fileName)) {
    statusBar()->showMessage(tr("Projection, units and adjustment were taken from the file's first line."));
  }
  refresh();
}

template <typename Dialog>
void frmTovak::openOptions() {
  Dialog(selections_.run, this).exec();
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
