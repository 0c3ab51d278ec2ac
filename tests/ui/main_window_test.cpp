#include "ui/main_window.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTableView>

#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

using tests::contentsOf;

TEST_F(MainWindow, ConvertsAFileThatWasChosenAndTyped) {
  const std::string source = folder.write("in.csv", "1,2,HILL,7,3.125\n5,6,DALE,,4.125\n");
  start.messages = {{.text = "Source File Was Not Specified.", .title = "Command Line Error"}};
  open().completeStart();
  EXPECT_EQ(window->windowTitle(), "Tovak  Version 1.2.3");
  dialogs.expectFile(source);
  choose("lstSourceFormat", run::source::CommaDelimited);
  EXPECT_EQ(text("txtSourceFile"), source);
  dialogs.expectFile("");
  choose("lstTargetFormat", run::target::CommaDelimited);
  EXPECT_EQ(dialogs.titles, (std::vector<std::string>{"Source File Name", "Target File Name"}));
  type("txtTargetFile", folder.file("out.csv").c_str());
  type("txtSourceProjection", "4");
  type("txtTargetProjection", "50");
  EXPECT_EQ(text("lblTargetSystem"), "unknown projection");
  type("txtTargetProjection", "107m");
  EXPECT_EQ(text("lblTargetSystem"), "State plane South, NAD27");
  EXPECT_TRUE(checked("btnTargetMetric"));
  click("adj11btn");
  if (!checked("ChkSuppress")) click("ChkSuppress");
  click("cmdExecute");

  EXPECT_EQ(contentsOf(folder.file("out.csv")),
            "$Tovak#107M$ NAD27  (Meters)\n2.000,4.000,HILL,7,6.125,,,\n6.000,8.000,DALE,1,7.125,,,\n");
  ASSERT_EQ(dialogs.boxes.size(), 3U);
  EXPECT_EQ(dialogs.boxes[0].title, "Command Line Error");
  EXPECT_EQ(dialogs.boxes[1].title, "Warning");
  EXPECT_EQ(dialogs.boxes[2].text, "Output File Written");
  EXPECT_EQ(engine.calls.back().source, "4");
  EXPECT_EQ(text("txtNextNumber") + " by " + text("txtIncrement"), "2 by 1");
  EXPECT_EQ(status(), "2 records read: 2 converted, 0 skipped, 0 passed over");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_FALSE(QSettings(QSettings::UserScope, "QtProject").isWritable()) << "the file dialog keeps nothing";
}

TEST_F(MainWindow, ShowsNoFurtherErrorsOnceAskedTo) {
  presetFiles("1,2,A\n3,4,B\n5,6,C\n7,8,D\n");
  engine.refusals = {{1, 7}, {3, 7}, {5, 7}};
  open();
  dialogs.expectBox(QMessageBox::Ok);
  dialogs.expect("QMessageBox", [](QDialog& box) {
    static_cast<QMessageBox&>(box).checkBox()->setChecked(true);
    box.accept();
  });
  click("cmdExecute");
  ASSERT_EQ(dialogs.boxes.size(), 3U);
  EXPECT_EQ(dialogs.boxes[0].title, "TovakX Conversion Error");
  EXPECT_EQ(dialogs.boxes[0].text, "refused with 7");
  EXPECT_EQ(dialogs.boxes[1].detail, "line 2 of " + folder.file("in.csv") + "\nNorthing 3.000, easting 4.000");
  EXPECT_TRUE(dialogs.boxes[1].offersToStop);
  EXPECT_EQ(dialogs.boxes[2].text, "Output File Written");
  EXPECT_FALSE(dialogs.boxes[2].offersToStop);
  EXPECT_NE(status().find("1 converted, 3 skipped"), std::string::npos) << status();
  EXPECT_EQ(window->statusBar()->toolTip(), plainTip(QString::fromStdString(status())));

  // Another run shows them again.
  click("cmdExecute");
  EXPECT_EQ(dialogs.boxes.size(), 7U);
}

TEST_F(MainWindow, StaysOpenDuringARunThatCanBeStopped) {
  constexpr int kRecords = 100000;
  std::string points = "9,9,BAD\n";
  for (int i = 1; i < kRecords; ++i) points += "1,2,A\n";
  presetFiles(points);
  start.settings.reportEnabled = true;
  start.settings.reportFileName = folder.write("day.rpt", "older\n");
  folder.write("out.csv", "older\n");
  const std::vector<std::string> before = folder.names();
  int record = 0;
  int slowRecord = 0;
  engine.keepsCalls = false;
  engine.arithmetic = [&](const tests::ScriptedEngine::Point& point) {
    // The window paints, and hears the person, ten times a second.
    QElapsedTimer time;
    time.start();
    while (record == slowRecord && time.elapsed() < 150) continue;
    ++record;
    return tests::ScriptedEngine::add(point);
  };
  for (const int percent : {0, 10, 50}) {
    SCOPED_TRACE(percent);
    engine.refusals.clear();
    open();
    QApplication::processEvents();
    record = 0;
    slowRecord = kRecords / 100 * percent;
    dialogs.expectBox(QMessageBox::Yes);  // the older target may be replaced
    if (percent == 0) {
      engine.refusals[9] = 7;
      dialogs.expect("QMessageBox", [](QDialog& box) {
        for (auto* const button : box.findChildren<QPushButton*>()) {
          if (button->text() == "Stop") button->click();
        }
      });
    }
    QTimer person;
    QObject::connect(&person, &QTimer::timeout, [&] {
      const QString told = widget<QLabel>("lblProgress").text();
      if (told.isEmpty() || told.section(' ', 0, 0).toInt() < percent) return;
      EXPECT_FALSE(window->close());
      click("cmdStop");
    });
    person.start(0);
    click("cmdExecute");
    EXPECT_TRUE(dialogs.finished());
    EXPECT_TRUE(text("resultHeadline").starts_with("The run was stopped before its end; ")) << text("resultHeadline");
    EXPECT_TRUE(tests::contentsOf(folder.file("out.csv")) == "older\n");
    EXPECT_TRUE(tests::contentsOf(folder.file("day.rpt")) == "older\n");
    EXPECT_EQ(folder.names(), before);
    EXPECT_FALSE(visible("cmdStop"));
  }
  click("cmdClose");
  EXPECT_FALSE(window->isVisible());
}

TEST_F(MainWindow, RestoresThePointerWhenAMessageStopsTheRun) {
  presetFiles("1,2,A\n");
  start.settings.target.fileName = start.settings.source.fileName;
  open();
  click("cmdExecute");
  ASSERT_EQ(dialogs.boxes.size(), 1U);
  EXPECT_EQ(dialogs.boxes[0].title, "Conflicting file names");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_TRUE(enabled("cmdExecute"));
  EXPECT_EQ(contentsOf(folder.file("in.csv")), "1,2,A\n");
}

TEST_F(MainWindow, WritesWhatTheOptionsDialogsChoose) {
  const struct {
    std::int16_t format;
    std::int16_t code;
    const char* dialog;
    const char* text;  ///< typed into the boxes of the dialog
    const char* target;
  } cases[] = {
      {run::target::TrimbleWaypoints, 4, "frmTovakWptTxt", "", "-91.000,46.000,3.000,\"A\"\n"},
      {run::target::DeLorme, 0, "frmTovakDelorme", "PIN", "Begin Symbol\n46.0000000,-91.0000000,A,PIN\nEnd\n"},
      {run::target::Maptech, 0, "frmTovakMaptech", "80", "46.0000000, -91.0000000, \"A\", \"1\", \"\", 80, 80\n"}};
  for (const auto& c : cases) {
    presetFiles("45,-93,A\n");
    start.settings.SourceProjectionCode = start.settings.TargetProjectionCode = c.code;
    start.settings.target.fileName = folder.file(c.dialog);
    start.settings.targetFormat = c.format;
    open();
    dialogs.expect(c.dialog, [](QDialog& dialog) { dialog.reject(); });
    click("cmdExecute");
    EXPECT_EQ(contentsOf(start.settings.target.fileName), "(no file)");
    dialogs.expect(c.dialog, [&c](QDialog& dialog) {
      for (auto* const option : dialog.findChildren<QRadioButton*>("optUsePD")) option->click();
      for (auto* const box : dialog.findChildren<QLineEdit*>()) box->setText(c.text);
      dialog.findChild<QPushButton*>("cmdContinue")->click();
    });
    click("cmdExecute");
    EXPECT_TRUE(dialogs.finished());
    const std::string target = contentsOf(start.settings.target.fileName);
    EXPECT_EQ(target.substr(target.find('\n') + 1), c.target);
  }
}

TEST_F(MainWindow, ConvertsTypedPointsOneByOne) {
  start.settings.SourceProjectionCode = 4;
  start.settings.TargetProjectionCode = 0;
  start.settings.source.metres = true;
  start.settings.adjustment = run::Adjustment::Nad83_1996;
  start.settings.reportEnabled = true;
  start.settings.reportFileName = folder.file("day.rpt");
  open();
  const auto convert = [this](const char* before, const char* northing, const char* easting) {
    dialogs.expect("frmTovakInput", [=](QDialog& dialog) {
      EXPECT_EQ(tests::box(dialog, "txtLatNorthY").text(), before);
      tests::box(dialog, "txtLatNorthY").setText(northing);
      tests::box(dialog, "txtLongEastX").setText(easting);
      tests::press(dialog, "cmdConvert");
    });
  };
  dialogs.expect("frmTovakInput", [](QDialog& dialog) {
    std::string labels;
    for (const char* name :
         {"lblLatNorthY", "lblLongEastX", "lblLatNYUnits", "lblZCUnits", "lblHGUnits", "lblHEUnits", "lblInProj"})
      labels += tests::caption(dialog, name) + '|';
    EXPECT_EQ(labels, "North/Y|East/X|Metric Plane Coordinates|(m)|(m)|(m)|State plane South, NAD83 : NAD83(1996)|");
    tests::press(dialog, "cmdConvert");
  });
  dialogs.expectBox(QMessageBox::Ok);
  convert("", "a hill", "");
  dialogs.expectBox(QMessageBox::Ok);
  convert("a hill", "a hill", "6");
  dialogs.expectBox(QMessageBox::Ok);
  convert("a hill", "5", "6");
  dialogs.expect("frmTovakOutput", [](QDialog& dialog) {
    const QAbstractItemModel& rows = *dialog.findChild<QTableView*>("msfgOutput")->model();
    EXPECT_EQ(tests::caption(dialog, "lblInProj"), "State plane South, NAD83 : NAD83(1996)");
    EXPECT_EQ(tests::caption(dialog, "lblOutProj"), "Latitude and Longitude, NAD83 : NAD83(1996)");
    ASSERT_EQ(rows.rowCount(), 1);
    EXPECT_EQ(rows.index(0, 4).data().toString(), "06 00 00.00000");
    dialog.accept();
  });
  dialogs.expect("frmTovakInput", [](QDialog& dialog) { dialog.reject(); });
  click("cmdExecute");
  EXPECT_TRUE(dialogs.finished());
  std::string told;
  for (const auto& box : dialogs.boxes) told += box.title + ": " + box.text + '\n';
  EXPECT_EQ(told,
            "Data entry error: Please enter a latitude or northing/Y value.\n"
            "Data entry error: Please enter a longitude or easting/X value.\n"
            " Tovak Keyboard Coordinate Entry: The northing/Y \"ahill\" is not a number.\n");
}

TEST_F(MainWindow, ShowsTypedPointsWithoutAReport) {
  presetFiles("");
  start.settings.sourceFormat = run::source::Keyboard;
  open();
  const auto type = [this](const char* focus, const char* easting) {
    dialogs.expect("frmTovakInput", [=](QDialog& dialog) {
      EXPECT_EQ(dialog.focusWidget()->objectName(), focus);
      tests::box(dialog, "txtLatNorthY").setText("5");
      tests::box(dialog, "txtLongEastX").setText(easting);
      tests::box(dialog, "txtZC").setText("2.5");
      tests::press(dialog, "cmdConvert");
    });
  };
  type("txtPointNumber", "x");
  type("txtLongEastX", "6");
  dialogs.expect("frmTovakOutput", [](QDialog& dialog) { dialog.accept(); });
  dialogs.expect("frmTovakInput", [](QDialog& dialog) {
    EXPECT_EQ(tests::caption(dialog, "lblResult"),
              "1: State plane South, NAD83\nNorth/Y 6.000   East/X 8.000   Elevation 5.500 (ft)");
    EXPECT_EQ(tests::box(dialog, "txtZC").text(), "");
    EXPECT_EQ(dialog.focusWidget()->objectName(), "txtLatNorthY");
    dialog.reject();
  });
  click("cmdExecute");
  EXPECT_TRUE(dialogs.finished());
  EXPECT_EQ(contentsOf(folder.file("out.csv")), "$Tovak#4$ NAD83  (Feet)\n6.000,8.000,,1,5.500,,,\n");
}

TEST_F(MainWindow, AsksBeforeAnotherFileIsReplaced) {
  presetFiles("1,2,A\n");
  const std::string older = folder.write("older.csv", "older\n");
  const auto questions = [this] {
    dialogs.boxes.clear();
    click("cmdExecute");
    return dialogs.boxes.size() - 1;
  };
  open();
  EXPECT_EQ(questions(), 0U) << "there is none yet";
  EXPECT_EQ(questions(), 0U) << "it is the window's own";
  type("txtTargetFile", older.c_str());
  dialogs.expectBox(QMessageBox::Yes);
  EXPECT_EQ(questions(), 1U);
  EXPECT_NE(contentsOf(older), "older\n");
  const std::string agreed = folder.write("agreed.csv", "older\n");
  dialogs.expectFile(agreed);
  click("cmdTargetBrowse");
  EXPECT_EQ(questions(), 0U) << "the file dialog has asked";
}

TEST_F(MainWindow, ReadsAndWritesWithTheFormatsChosenInTheEditor) {
  presetFiles("7;5;6\n");
  start.delimitedFormats.push_back({.name = "Own", .delimiter = ';', .fieldCodes = " 3~ 0~ 1~"});
  open();
  dialogs.expect("frmTovakComDel", [](QDialog& editor) {
    auto& names = *editor.findChild<QComboBox*>("FmtNames");
    names.setCurrentIndex(1);
    emit names.activated(1);
    editor.findChild<QPushButton*>("btnDone")->click();
  });
  trigger("mnuFileSourceLayout");
  EXPECT_EQ(widget<QComboBox>("lstSourceLayout").currentText(), "Own");
  choose("lstTargetLayout", 1);
  click("cmdExecute");
  EXPECT_EQ(contentsOf(folder.file("out.csv")), "$Tovak#4$ NAD83  (Feet)\n7;6.000;8.000\n");

  // Whatever becomes of the entry, the format stays the side's until another is chosen.
  dialogs.expect("frmTovakComDel", [](QDialog& editor) {
    EXPECT_EQ(editor.windowTitle(), " User-Defined Delimited Format for Output File");
    EXPECT_EQ(editor.findChild<QComboBox*>("FmtNames")->currentIndex(), 1);
    editor.findChild<QPushButton*>("btnDelete")->click();
    editor.reject();
  });
  click("cmdTargetLayout");
  EXPECT_EQ(chosen("lstTargetLayout"), -1);
  EXPECT_EQ(widget<QComboBox>("lstTargetLayout").placeholderText(), "Own (as it was chosen)");
  EXPECT_EQ(window->selections().run.targetDelimited.fieldCodes, " 3~ 0~ 1~");
  choose("lstSourceFormat", run::source::Keyboard);
  EXPECT_FALSE(enabled("mnuFileSourceLayout") || enabled("cmdSourceLayout"));
  dialogs.expect("frmTovakComDel", [](QDialog& editor) { editor.reject(); });
  trigger("mnuToolsLayouts");
  EXPECT_TRUE(dialogs.finished());
}

TEST_F(MainWindow, TakesWhatADroppedFileSaysOfItself) {
  const std::string name = folder.write("own.csv", "$Tovak#4M-1996$ NAD83(1996)  (Meters)\n1,2\n");
  // The keyboard's file box is disabled: the window takes the file.
  for (const std::int16_t format : {run::source::Keyboard, run::source::Sdms}) {
    SCOPED_TRACE(format);
    start.settings.sourceFormat = format;
    open();
    drop("txtSourceFile", name);
    EXPECT_EQ(chosen("lstSourceFormat"), run::source::CommaDelimited);
    EXPECT_EQ(text("txtSourceFile"), name);
    EXPECT_EQ(text("txtSourceProjection"), "4M");
    EXPECT_TRUE(checked("adj96btn"));
    drop("grpSource", QList<QUrl>());
    drop("grpSource", QList<QUrl>{QUrl("https://a.place/in.csv")});
    EXPECT_EQ(text("txtSourceFile"), name) << "neither is a file";
    EXPECT_NE(status(), "");
    drop("grpSource", folder.write("other.txt", "words\n"));
    EXPECT_EQ(chosen("lstSourceFormat"), run::source::Keyboard);
    EXPECT_EQ(status(), "") << "nothing was taken from this one";
  }
}

TEST_F(MainWindow, ReadsTheDatabaseFromDroppedMapSheets) {
  const auto station = [](const char* zone) { return std::string("HILL,,,,,,,,,,,,7,") + zone + ",G1,45.3,93.3\n"; };
  const std::string one = folder.write("ALDR1.csv", station("Alder - North") + station("Alder - South"));
  folder.write("ALDR2.csv", station("Alder - South") + "NO ANGLE,,,,,,,,,,,,,Alder - South,G2,45.6,93.3\n");
  const std::string lone = folder.write("OAKH1.csv", "HILL,45.3,93.3,,,,,,,,,,,,G1,,\n");
  start.mapSheetCodes = "ALDR1~OAKH1";
  presetFiles("");
  start.settings.targetFormat = run::target::GeopakNe;
  open();
  dialogs.expectBox(QMessageBox::Yes);
  drop("txtSourceFile", one);
  EXPECT_EQ(dialogs.boxes.at(0).title, "Multiple Map Sheets");
  EXPECT_EQ(text("txCsvtSrcFile"), one + "  (+1 more)");
  EXPECT_TRUE(visible("frameSrcCsvPrj") && !visible("frameSrcMapPrj"));
  EXPECT_TRUE(!visible("txtSourceFile") && checked("adjNonebtn"));
  EXPECT_EQ(widget<QComboBox>("lstCsvVertical").currentText(), "NGVD29");
  EXPECT_TRUE(checked("btnNgvd29") && !enabled("frameVertical"));

  click("cmdExecute");
  EXPECT_EQ(dialogs.boxes.back().text, "You must select a horizontal reference option.");
  EXPECT_EQ(window->focusWidget(), &widget<QComboBox>("lstHorizontal"));
  emit widget<QComboBox>("lstHorizontal").textActivated("NAD83(2011) ADJ.");
  EXPECT_TRUE(checked("adj11btn"));
  EXPECT_EQ(text("lblCsvSource"), "Projection = 0    (Latitude and Longitude : NAD83)");
  click("cmdExecute");
  EXPECT_EQ(dialogs.boxes.back().text, "You must select a county zone.");
  EXPECT_EQ(window->focusWidget(), &widget<QComboBox>("lstCsvZone"));
  emit widget<QComboBox>("lstCsvZone").textActivated("South");
  click("cmdExecute");
  EXPECT_EQ(
      status(),
      "4 records read: 2 converted, 1 skipped (1 for an angle; first in line 2 of ALDR2.csv: The minutes or seconds "
      "of a latitude or longitude are not below 60.), 1 passed over (1 of another zone, first in line 1 of "
      "ALDR1.csv)");

  // Another sheet begins anew.
  drop("txCsvtSrcFile", lone);
  EXPECT_EQ(text("txCsvtSrcFile"), lone);
  EXPECT_EQ(chosen("lstHorizontal"), -1);
  dialogs.expectBox(QMessageBox::Cancel);
  drop("txCsvtSrcFile", one);
  EXPECT_EQ(chosen("lstSourceFormat"), run::source::Keyboard);
  EXPECT_TRUE(visible("frameSrcMapPrj") && dialogs.finished());
}

TEST_F(MainWindow, OffersAFileForTheDatabase) {
  const std::string sheet = folder.write("ELMW1.csv", "NAME");
  for (const std::string& file : {std::string(), sheet, folder.write("points.txt", "")}) {
    SCOPED_TRACE(file);
    open();
    dialogs.expectFile(file);
    choose("lstSourceFormat", run::source::GeodeticCsv);
    EXPECT_EQ(chosen("lstSourceFormat"), file == sheet ? run::source::GeodeticCsv : run::source::Keyboard);
  }
  EXPECT_EQ(dialogs.boxes.back().text, "The source file is not a CSV file.");
  // A sheet named on the command line is searched once the window is there.
  start.settings.sourceFormat = run::source::GeodeticCsv;
  start.settings.source.fileName = sheet;
  open().completeStart();
  EXPECT_EQ(widget<QComboBox>("lstHorizontal").count(), 1);
  start.settings.source.fileName = folder.file("ELMW2.csv");
  start.mapSheetCodes = "ELMW1";
  open().completeStart();
  EXPECT_EQ(status(), "No file of the geodetic database was found.");
  drop("txtSourceFile", sheet);
  EXPECT_EQ(status(), "");
}

}  // namespace
}  // namespace tovak::ui
