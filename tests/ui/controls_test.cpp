// Every control of the main window: what it changes in the settings, and what the run makes of that change.
#include <QAction>
#include <QRegularExpression>
#include <QTreeWidget>
#include <set>

#include "report/report_writer.h"
#include "support/row.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

using tests::changes;
using tests::row;
using tests::Values;

/// The settings that the controls choose, by their names.
Values valuesOf(const run::RunSettings& s) {
  return {{"sourceFormat", row(s.sourceFormat)},
          {"targetFormat", row(s.targetFormat)},
          {"sourceLayout", s.sourceDelimited.name},
          {"targetLayout", s.targetDelimited.name},
          {"source", s.source.projectionText},
          {"target", s.target.projectionText},
          {"sourceCode", row(s.SourceProjectionCode)},
          {"targetCode", row(s.TargetProjectionCode)},
          {"sourceMetres", row(s.source.metres)},
          {"targetMetres", row(s.target.metres)},
          {"sourceFile", std::filesystem::path(s.source.fileName).filename()},
          {"targetFile", std::filesystem::path(s.target.fileName).filename()},
          {"form", row(static_cast<char>(s.latLongForm))},
          {"adjustment", row(static_cast<int>(s.adjustment))},
          {"vertical", row(static_cast<int>(s.verticalDatum))},
          {"accuracy", row(s.accuracy)},
          {"next", row(s.NextPointNumber)},
          {"step", row(s.PointNumberIncrement)},
          {"blank", row(s.allowBlankPointNumbers)},
          {"report", row(s.reportEnabled)},
          {"append", row(s.appendReport)},
          {"print", row(s.printReport)},
          {"reportFile", std::filesystem::path(s.reportFileName).filename()},
          {"description", s.reportDescription},
          {"waypoint", s.options.waypoints.name},
          {"label", row(s.options.maptech.color, s.options.maptech.symbol)},
          {"symbol", s.options.delorme.symbol}};
}

class Controls : public MainWindow {
 protected:
  Controls() {
    start.formatTables.report = {report::makeReportWriter, "1.2.3", [] { return text::Date{2026, 11, 21}; }};
    start.delimitedFormats.push_back({.name = "Own", .delimiter = ';', .fieldCodes = " 3~ 0~ 1~"});
  }

  /// A run from latitudes and longitudes in NAD83 to the south zone, with a report behind an older one.
  void reopen() {
    dialogs.boxes.clear();
    engine.calls.clear();
    std::filesystem::remove(folder.file("new"));
    presetFiles("453000,931500,HILL,,8.125\n");
    folder.write("other.csv", "460000,931500,DALE,,8.125\n");
    std::filesystem::remove(folder.file("out.csv"));
    start.settings.SourceProjectionCode = 0;
    start.settings.latLongForm = text::AngleForm::DegreesMinutesSeconds;
    start.settings.reportEnabled = true;
    start.settings.reportFileName = folder.write("day.rpt", "An earlier note.\n");
    open();
  }
  void press(const char* name) {
    if (auto* const action = window->findChild<QAction*>(name)) return action->trigger();
    click(name);
  }
  /// All that the run leaves: calls of the engine, boxes, status line, target and report.
  std::string run() {
    // The points of a report are seen in a grid.
    if (window->selections().run.reportEnabled) dialogs.expect("frmTovakOutput", [](QDialog& grid) { grid.accept(); });
    click("cmdExecute");
    std::string left;
    for (const auto& call : engine.calls)
      left += row(call.northing, call.easting, call.source, call.target, call.form) + "\n";
    for (const auto& box : dialogs.boxes) left += box.text + "\n";
    return left + status() + "\n" + tests::contentsOf(folder.file("out.csv")) + "new:\n" +
           tests::contentsOf(folder.file("new")) + "report:\n" + tests::contentsOf(folder.file("day.rpt"));
  }
};

TEST_F(Controls, ChangeTheirSettingAndTheRun) {
  using Use = std::function<void(const char*)>;
  const auto pick = [this](int index) -> Use { return [=, this](const char* list) { choose(list, index); }; };
  const auto typed = [this](const std::string& text) -> Use {
    return [=, this](const char* line) { type(line, text.c_str()); };
  };
  const Use pressed = [this](const char* button) { press(button); };
  const auto pressedAfter = [this](const char* other) -> Use {
    return [=, this](const char* button) {
      click(other);
      click(button);
    };
  };
  const auto answered = [this](const char* dialog, const std::function<void(QDialog&)>& answer) -> Use {
    return [=, this](const char* button) {
      dialogs.expect(dialog, answer);
      press(button);
    };
  };
  const auto browsed = [this](const char* name) -> Use {
    return [=, this](const char* button) {
      dialogs.expectFile(folder.file(name));
      press(button);
    };
  };
  const Use ownLayout = answered("frmTovakComDel", [](QDialog& editor) {
    tests::choose(editor, "FmtNames", 1);
    tests::press(editor, "btnDone");
  });
  const Use south27 = answered("frmTovakSystems", [](QDialog& list) {
    EXPECT_EQ(list.findChild<QTreeWidget*>()->topLevelItemCount(), 4);
    QTest::keyClicks(list.findChild<QLineEdit*>(), "nad27 south");
    QTest::keyClick(list.findChild<QLineEdit*>(), Qt::Key_Return);
  });
  const Use numbering = answered("frmTovakDefPtNo", [](QDialog& dialog) {
    tests::box(dialog, "defPN").setText("40");
    tests::box(dialog, "defPInc").setText("5");
    tests::press(dialog, "cmdContinue");
  });
  const auto waypoints = [&](const char* option) {
    return answered("frmTovakWptTxt", [option](QDialog& dialog) {
      tests::press(dialog, option);
      tests::press(dialog, "cmdContinue");
    });
  };
  const Use label = answered("frmTovakMaptech", [](QDialog& dialog) {
    tests::box(dialog, "txtColor").setText("c0");
    tests::box(dialog, "txtSymbol").setText("7");
    tests::press(dialog, "cmdContinue");
  });
  const Use symbol = answered("frmTovakDelorme", [](QDialog& dialog) {
    auto& names = tests::control<QComboBox>(dialog, "cmbSymbol");
    EXPECT_EQ(names.currentText(), "CIRCLE");
    names.setEditText("  ");
    EXPECT_FALSE(tests::control<QAbstractButton>(dialog, "cmdContinue").isEnabled());
    names.setEditText(" PIN ");
    tests::press(dialog, "cmdContinue");
  });
  const Use project = answered("frmTovakProject", [](QDialog& dialog) { dialog.reject(); });
  const Use printed = [this](const char* box) {
    click(box);
    dialogs.expect("QPrintDialog", [](QDialog& dialog) { dialog.reject(); });
  };
  const std::string newFile = folder.file("new"), other = folder.file("other.csv");
  const struct {
    const char* control;
    Use use;
    const char* changes;
    const char* effect;  ///< a part of what the run leaves; behind "!" what it does not leave
  } cases[] = {
      {"lstSourceFormat", pick(run::source::Maptech), "form=D sourceFormat=11", "\n453001.000,"},
      {"lstSourceLayout", pick(1), "sourceLayout=Own", "1 passed over"},
      {"cmdSourceLayout", ownLayout, "sourceLayout=Own", "1 passed over"},
      {"mnuFileSourceLayout", ownLayout, "sourceLayout=Own", "1 passed over"},
      {"txtSourceProjection", typed("4m"), "source=4M sourceCode=4 sourceMetres=1", "453000|931500|4M|4|S"},
      {"cmdSourceChoose", south27, "source=107 sourceCode=107", "453000|931500|107|4|S"},
      {"btnSourceMetric", pressed, "source=0M sourceMetres=1", "45.5|-93.25|0M|4|S"},
      {"btnSourceEnglish", pressedAfter("btnSourceMetric"), "", "45.5|-93.25|0|4|S"},
      {"txtSourceFile", typed(other), "sourceFile=other.csv", "47.000,-91.250,DALE"},
      {"cmdSourceBrowse", browsed("other.csv"), "sourceFile=other.csv", "47.000,-91.250,DALE"},
      {"mnuFileOpen", browsed("other.csv"), "sourceFile=other.csv", "47.000,-91.250,DALE"},
      {"cmdSwap", pressedAfter("ChkSuppress"),
       "report=0 source=4 sourceCode=4 sourceFile=out.csv target=0 targetCode=0 targetFile=in.csv",
       "in.csv\nexists already. Do you want to replace it?"},
      {"lstTargetFormat", pick(run::target::GeopakXy), "targetFormat=14", "STO POI 1  X -91.250  Y 46.500"},
      {"lstTargetLayout", pick(1), "targetLayout=Own", "\n1;46.500;-91.250\n"},
      {"cmdTargetLayout", ownLayout, "targetLayout=Own", "\n1;46.500;-91.250\n"},
      {"mnuFileTargetLayout", ownLayout, "targetLayout=Own", "\n1;46.500;-91.250\n"},
      {"txtTargetProjection", typed("3m"), "target=3M targetCode=3 targetMetres=1", "$Tovak#3M$ NAD83  (Meters)"},
      {"cmdTargetChoose", south27, "target=107 targetCode=107", "$Tovak#107$ NAD27  (Feet)"},
      {"btnTargetMetric", pressed, "target=4M targetMetres=1", "45.5|-93.25|0|4M|S"},
      {"btnTargetEnglish", pressedAfter("btnTargetMetric"), "", "45.5|-93.25|0|4|S"},
      {"txtTargetFile", typed(newFile), "targetFile=new", "new:\n$Tovak#4$"},
      {"cmdTargetBrowse", browsed("new"), "targetFile=new", "new:\n$Tovak#4$"},
      {"mnuFileSave", browsed("new"), "targetFile=new", "new:\n$Tovak#4$"},
      {"adjNonebtn", pressedAfter("adj86btn"), "", "$Tovak#4$ NAD83 "},
      {"adj86btn", pressed, "adjustment=1", "$Tovak#4-1986$ NAD83(1986) "},
      {"adj96btn", pressed, "adjustment=2", "$Tovak#4-1996$ NAD83(1996) "},
      {"adj07btn", pressed, "adjustment=3", "$Tovak#4-2007$ NAD83(2007) "},
      {"adj11btn", pressed, "adjustment=4", "$Tovak#4-2011$ NAD83(2011) "},
      {"btnDMS", pressedAfter("btnDD"), "", "45.5|-93.25|0|4|S"},
      {"btnDM", pressed, "form=M", "4530|-9315|0|4|S"},
      {"btnDD", pressed, "form=D", "453000|-931500|0|4|D"},
      {"lstAccuracy", pick(2), "accuracy=2", " 11.1\n"},
      {"btnNavd88", pressedAfter("btnNgvd29"), "", "Vertical (NAVD88)"},
      {"btnNgvd29", pressed, "vertical=1", "Vertical (NGVD29)"},
      {"cmdNumbering", numbering, "next=40 step=5", ",HILL,40,"},
      {"mnuToolsNumbering", numbering, "next=40 step=5", ",HILL,40,"},
      {"mnuToolsWaypoints", waypoints("optUseST"), "waypoint=ST", ""},
      {"mnuToolsWaypoints", waypoints("optUsePD"), "waypoint=PD", ""},
      {"mnuToolsMaptech", label, "label=c0|7", ""},
      {"mnuToolsDelorme", symbol, "symbol=PIN", ""},
      {"txtNextNumber", typed("7"), "", ",HILL,1,"},
      {"txtIncrement", typed("7"), "", ",HILL,1,"},
      {"chkAllowBlank", pressed, "blank=1", ",HILL,,"},
      {"cmdProject", project, "", ""},
      {"mnuToolsProject", project, "", ""},
      {"ChkSuppress", pressed, "report=0", "Output File Written"},
      {"ChkSuppress", pressedAfter("ChkSuppress"), "", "Report        Conversion Date:"},
      {"btnAppend", pressedAfter("btnOverwrite"), "", "An earlier note."},
      {"btnOverwrite", pressed, "append=0", "!An earlier note."},
      {"chkPrint", printed, "print=1", ""},
      {"txtPrintFile", typed(newFile), "reportFile=new", "new:\n"},
      {"cmdReportBrowse", browsed("new"), "reportFile=new", "new:\n"},
      {"txtDescription", typed("Bridge 9"), "description=Bridge 9", "Bridge 9"},
  };
  std::set<std::string> known = {
      "lstHorizontal",  "lstCsvVertical", "lstCsvZone",       "txCsvtSrcFile",  // of the database
      "mnuFileOpenJob", "mnuFileSaveJob", "mnuFileSaveJobAs", "mnuFileCommand", "cmdExecute",      "mnuFileExecute",
      "cmdClose",       "mnuFileExit",    "mnuFilePrint",     "mnuFilePreview", "mnuToolsLayouts", "mnuHelpContents",
      "mnuHelpAbout",   "chkTargetText",  "cmdMore",          "cmdStop",        "cmdOpenTarget",   "cmdOpenReport",
      "cmdShowGrid",    "cmdCopyList",    "cmdSaveList"};
  for (const auto& c : cases) known.insert(c.control);
  open();
  for (const QObject* const part :
       window->findChildren<QObject*>(QRegularExpression("^(lst|txt|tx|btn|adj|chk|Chk|cmd|mnu)")))
    EXPECT_TRUE(known.contains(part->objectName().toStdString()) || part->inherits("QMenu"))
        << part->objectName().toStdString();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.control);
    reopen();
    const Values before = valuesOf(window->selections().run);
    c.use(c.control);
    EXPECT_EQ(changes(before, valuesOf(window->selections().run)), c.changes);
    const std::string left = run();
    const bool absent = *c.effect == '!';
    EXPECT_EQ(left.find(absent ? c.effect + 1 : c.effect) == std::string::npos, absent) << left;
    EXPECT_TRUE(dialogs.finished());
  }
}

TEST_F(Controls, TakeAFormatOnceItIsSettled) {
  const auto sourceFormat = [this] { return window->selections().run.sourceFormat; };
  reopen();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  auto& list = widget<QComboBox>("lstSourceFormat");
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_End);
  QTest::keyClick(&list, Qt::Key_Up);
  EXPECT_EQ(chosen("lstSourceFormat"), run::source::WayPointsPlus);
  EXPECT_EQ(sourceFormat(), run::source::CommaDelimited);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(sourceFormat(), run::source::WayPointsPlus);
  QTest::keyClick(&list, Qt::Key_Up);
  widget<QWidget>("txtTargetFile").setFocus(Qt::TabFocusReason);
  QApplication::processEvents();
  EXPECT_EQ(sourceFormat(), run::source::Maptech);
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Home);
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_NE(run().find("453001.000,"), std::string::npos);
  EXPECT_EQ(sourceFormat(), run::source::CommaDelimited);

  widget<QWidget>("txtTargetFile").setFocus();
  for (QComboBox* const other : window->findChildren<QComboBox*>()) {
    QWheelEvent turn({5, 5}, other->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    const int before = other->currentIndex();
    QApplication::sendEvent(other, &turn);
    EXPECT_EQ(other->currentIndex(), before) << other->objectName().toStdString();
    EXPECT_FALSE(other->hasFocus());
  }
}

TEST_F(Controls, KeepTheUnitOfANumberThatIsTypedOver) {
  const struct {
    const char* before;
    int start, length;  ///< of the selection
    const char* typed;  ///< "\b" deletes
    const char* after;
  } cases[] = {{"1M", 0, 2, "1", "1M"}, {"2M", 0, 2, "2", "2M"},   {"10M", 0, 3, "1", "1M"}, {"10M", 0, 3, "4", "4M"},
               {"4M", 1, 1, "\b", "4"}, {"4M", 2, 0, "\b", "4"},   {"4", 0, 1, "1", "1"},    {"4M", 0, 2, "\b4", "4M"},
               {"4M", 0, 1, "x", "xM"}, {"4M", 2, 0, "\b\b7", "7"}};
  for (const auto& c : cases) {
    reopen();
    type("txtSourceProjection", c.before);
    auto& box = widget<QLineEdit>("txtSourceProjection");
    box.setCursorPosition(c.start);
    if (c.length > 0) box.setSelection(c.start, c.length);
    for (const char* key = c.typed; *key != '\0'; ++key) {
      QTest::keyClick(&box, *key == '\b' ? Qt::Key_Backspace : static_cast<Qt::Key>(std::toupper(*key)));
    }
    EXPECT_EQ(box.text(), c.after) << c.before << " and " << c.typed;
    EXPECT_EQ(checked("btnSourceMetric"), std::string(c.after).ends_with('M'));
  }
  // Pasted over as by a menu.
  reopen();
  type("txtSourceProjection", "4M");
  widget<QLineEdit>("txtSourceProjection").selectAll();
  widget<QLineEdit>("txtSourceProjection").insert("x");
  EXPECT_EQ(text("lblSourceSystem"), "unknown projection");
  EXPECT_FALSE(widget<QLabel>("lblSourceSystem").palette() == window->palette());
  click("cmdExecute");
  EXPECT_EQ(dialogs.boxes.back().text, "The source has an unknown projection: its box holds no number.");
  EXPECT_EQ(window->focusWidget(), &widget<QLineEdit>("txtSourceProjection"));
}

TEST_F(Controls, SearchForASystemThatIsTypedByName) {
  for (const bool metres : {false, true}) {
    reopen();
    auto& box = widget<QLineEdit>("txtSourceProjection");
    if (metres) click("btnSourceMetric");
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, "transm nad8");
    dialogs.expect("frmTovakSystems", [](QDialog& list) {
      EXPECT_EQ(tests::box(list, "txtSearch").text(), "transm nad8");
      tests::box(list, "txtSearch").setText("trans");
      list.accept();
    });
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_TRUE(dialogs.finished());
    EXPECT_EQ(box.text(), metres ? "1M" : "1");
  }
}

TEST_F(Controls, AnswerWhereTheyApply) {
  const auto answering = [this] {
    std::string names;
    for (const char* name : {"frameSourceFile", "frameTargetFile", "frameSrcMapPrj", "frameTrgMapPrj",
                             "frameSourceUnits", "frameTargetUnits", "frameLLfmt", "frameAdjustment", "frameVertical",
                             "frameNumbering", "cmdNumbering", "ChkSuppress", "frameReport", "txtDescription"})
      names += enabled(name) ? std::string(name) + ' ' : "";
    return names;
  };
  reopen();
  click("chkAllowBlank");
  EXPECT_EQ(answering(),
            "frameSourceFile frameTargetFile frameSrcMapPrj frameTrgMapPrj frameSourceUnits frameTargetUnits "
            "frameLLfmt frameAdjustment frameVertical frameNumbering ChkSuppress frameReport txtDescription ");
  choose("lstTargetFormat", run::target::KrvBatch);
  EXPECT_EQ(chosen("lstSourceFormat"), run::source::KrvBatch);
  EXPECT_EQ(widget<QWidget>("lstSourceFormat").toolTip(), plainTip("KRV Batch Input File (not available)"));
  EXPECT_EQ(widget<QComboBox>("lstSourceFormat").currentText(), "KRV Batch Input File");
  EXPECT_EQ(answering(), "frameSourceFile frameTargetFile frameTargetUnits ");
  start.settings.reportEnabled = false;
  start.settings.sourceFormat = run::source::Keyboard;
  start.settings.targetFormat = run::target::ScreenOnly;
  start.settings.SourceProjectionCode = 4;
  open();
  EXPECT_EQ(answering(),
            "frameSrcMapPrj frameTrgMapPrj frameSourceUnits frameTargetUnits frameAdjustment frameVertical "
            "frameNumbering cmdNumbering ChkSuppress ");
}

}  // namespace
}  // namespace tovak::ui
