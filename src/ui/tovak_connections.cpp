// What each control and menu entry of the main window does.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "run/projection_box.h"
#include "ui/qt_text.h"
#include "ui/report_printing.h"
#include "ui/tovak.h"
#include "ui/tovak_delorme.h"
#include "ui/tovak_maptech.h"
#include "ui/tovak_wpt_txt.h"
#include "ui_tovak.h"

namespace tovak::ui {

using selection::Side;

template <typename Dialog>
void frmTovak::openOptions() {
  Dialog(selections_.run, this).exec();
  refresh();
}

void frmTovak::connectSide(SideWidgets& side) {
  const bool isSource = side.side == Side::Source;
  connect(side.format, &QComboBox::activated, this, [this, &side](int index) { chooseFormat(side, index); });
  connect(side.layout, &QComboBox::activated, this, [this, &side](int index) { chooseLayout(side, index); });
  connect(side.editLayout, &QPushButton::clicked, this, [this, isSource] {
    editLayouts(isSource ? formats::delimited::EditorPurpose::InputFile
                         : formats::delimited::EditorPurpose::OutputFile);
  });
  // The box reports its new text before it reports that nothing is selected any more.
  connect(side.projection, &QLineEdit::selectionChanged, this, [&side] {
    const QString selected = side.projection->selectedText();
    side.numberSelected = std::any_of(selected.begin(), selected.end(), [](QChar c) { return c.isDigit(); });
  });
  connect(side.projection, &QLineEdit::textEdited, this,
          [this, &side](const QString& text) { typeProjection(side, text); });
  connect(side.projection, &QLineEdit::returnPressed, this, [this, &side] {
    if (run::namesSystem(side.projection->text().toStdString())) chooseSystem(side);
  });
  connect(side.projection, &QLineEdit::editingFinished, this, [this, &side] { refreshSide(side); });
  connect(side.choose, &QPushButton::clicked, this, [this, &side] { chooseSystem(side); });
  for (QRadioButton* const button : {side.english, side.metric}) {
    connect(button, &QRadioButton::clicked, this, [this, &side] {
      selection::chooseUnit(selections_, side.side, side.metric->isChecked());
      refresh();
    });
  }
  connect(side.file, &QLineEdit::textEdited, this, [this, &side](const QString& text) {
    selection::nameFile(selections_, side.side, text.toStdString());
    schedulePreview();
  });
  // The box may be too narrow for the name.
  connect(side.file, &QLineEdit::textChanged, this, [&side, tip = side.file->toolTip()](const QString& name) {
    side.file->setToolTip(name.isEmpty() ? tip : plainTip(name + "\n" + tip));
  });
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
  connect(f.lstAccuracy, &QComboBox::activated, this, [this](int index) {
    selection::chooseAccuracy(selections_, static_cast<text::Accuracy>(index));
    schedulePreview();
  });
  connect(f.btnNavd88, &QRadioButton::clicked, this, [this] {
    selection::chooseVerticalDatum(selections_, run::VerticalDatum::Navd88);
    schedulePreview();
  });
  connect(f.btnNgvd29, &QRadioButton::clicked, this, [this] {
    selection::chooseVerticalDatum(selections_, run::VerticalDatum::Ngvd29);
    schedulePreview();
  });
  connect(f.cmdNumbering, &QPushButton::clicked, this, &frmTovak::openOptions<frmTovakDefPtNo>);
  connect(f.cmdProject, &QPushButton::clicked, this, &frmTovak::openProject);
  connect(f.chkAllowBlank, &QCheckBox::clicked, this, [this](bool allowed) {
    selection::allowBlankNumbers(selections_, allowed);
    refresh();
  });
}

void frmTovak::connectReport() {
  const Ui::frmTovak& f = *form_;
  connect(f.ChkSuppress, &QCheckBox::clicked, this, [this](bool suppressed) {
    selection::suppressReport(selections_, suppressed);
    refresh();
  });
  connect(f.btnAppend, &QRadioButton::clicked, this, [this] { selection::appendReport(selections_, true); });
  connect(f.btnOverwrite, &QRadioButton::clicked, this, [this] { selection::appendReport(selections_, false); });
  connect(f.chkPrint, &QCheckBox::clicked, this, [this](bool print) { selection::printReport(selections_, print); });
  connect(f.txtPrintFile, &QLineEdit::textEdited, this, [this](const QString& text) {
    selection::nameReport(selections_, text.toStdString());
    schedulePreview();
  });
  connect(f.cmdReportBrowse, &QPushButton::clicked, this, &frmTovak::browseReport);
  connect(f.txtDescription, &QLineEdit::textEdited, this,
          [this](const QString& text) { selection::describeReport(selections_, text.toStdString()); });
}

void frmTovak::connectMenus() {
  const Ui::frmTovak& f = *form_;
  connect(f.cmdSwap, &QToolButton::clicked, this, &frmTovak::exchangeSides);
  connect(f.cmdMore, &QToolButton::toggled, this, &frmTovak::showMore);
  connect(f.cmdExecute, &QPushButton::clicked, this, &frmTovak::execute);
  connect(f.cmdClose, &QPushButton::clicked, this, &QWidget::close);
  // A status line too long for the window can be read in its tool tip.
  connect(f.statusbar, &QStatusBar::messageChanged, this,
          [this](const QString& text) { form_->statusbar->setToolTip(plainTip(text)); });
  connect(f.mnuFileOpen, &QAction::triggered, this, [this] { browse(sides_[0]); });
  connect(f.mnuFileSave, &QAction::triggered, this, [this] { browse(sides_[1]); });
  connect(f.mnuFileSourceLayout, &QAction::triggered, f.cmdSourceLayout, &QPushButton::click);
  connect(f.mnuFileTargetLayout, &QAction::triggered, f.cmdTargetLayout, &QPushButton::click);
  connect(f.mnuFileExecute, &QAction::triggered, this, &frmTovak::execute);
  connect(f.mnuFilePrint, &QAction::triggered, this, [this] { openReport(tr("Report File to Print"), printReport); });
  connect(f.mnuFilePreview, &QAction::triggered, this,
          [this] { openReport(tr("Report File to Preview"), previewReport); });
  connect(f.mnuFileExit, &QAction::triggered, this, &QWidget::close);
  connect(f.mnuToolsNumbering, &QAction::triggered, this, &frmTovak::openOptions<frmTovakDefPtNo>);
  connect(f.mnuToolsLayouts, &QAction::triggered, this,
          [this] { editLayouts(formats::delimited::EditorPurpose::Utility); });
  connect(f.mnuToolsProject, &QAction::triggered, this, &frmTovak::openProject);
  connect(f.mnuToolsWaypoints, &QAction::triggered, this, &frmTovak::openOptions<frmTovakWptTxt>);
  connect(f.mnuToolsMaptech, &QAction::triggered, this, &frmTovak::openOptions<frmTovakMaptech>);
  connect(f.mnuToolsDelorme, &QAction::triggered, this, &frmTovak::openOptions<frmTovakDelorme>);
  connect(f.mnuHelpContents, &QAction::triggered, this, &frmTovak::openHelp);
  connect(f.mnuHelpAbout, &QAction::triggered, this, [this] { frmTovakAbout(this).exec(); });
}

}  // namespace tovak::ui
