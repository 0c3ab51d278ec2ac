#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>
#include <QWindow>

#include <gtest/gtest.h>

#include "formats/delimited/built_in_formats.h"
#include "formats/format_tables.h"
#include "run/format_index.h"
#include "support/dialog_script.h"
#include "support/scripted_engine.h"
#include "support/temporary_folder.h"
#include "ui/tovak.h"

namespace tovak::ui {
namespace {

using tests::contentsOf;

class NamingEngine final : public tests::ScriptedEngine {
 public:
  std::string GetProjectionData(std::int16_t code) override {
    if (code == 0) return "Latitude and Longitude, NAD83~0";
    if (code == 4) return "State plane South, NAD83~4";
    if (code == 107) return "State plane South, NAD27~107";
    return code == 1 ? "Transverse, NAD83~1" : ScriptedEngine::GetProjectionData(code);
  }
};

class MainWindow : public testing::Test {
 protected:
  MainWindow() {
    start.engine = &engine;
    start.formatTables = formats::formatTables();
    start.delimitedFormats = {formats::standardFormat()};
    start.version = "1.2.3";
    start.workingFolder = folder.path();
  }

  /// The window, with names of files and no report unless the test says otherwise.
  frmTovak& open() {
    window = std::make_unique<frmTovak>(start);
    window->show();
    return *window;
  }
  void presetFiles(std::string_view points) {
    start.settings.sourceFormat = run::source::CommaDelimited;
    start.settings.targetFormat = run::target::CommaDelimited;
    start.settings.SourceProjectionCode = start.settings.TargetProjectionCode = 4;
    start.settings.source.fileName = folder.write("in.csv", points);
    start.settings.target.fileName = folder.file("out.csv");
  }

  template <typename Widget>
  Widget& widget(const char* name) {
    auto* const found = window->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }
  void click(const char* name) { widget<QAbstractButton>(name).click(); }
  void choose(const char* list, int index) {
    auto& box = widget<QComboBox>(list);
    box.setCurrentIndex(index);
    emit box.activated(index);
  }
  void type(const char* name, const char* text) {
    auto& line = widget<QLineEdit>(name);
    line.selectAll();
    QTest::keyClicks(&line, text);
  }
  /// As a file manager does: the window finds out what lies under the pointer.
  void drop(const char* name, const std::string& file) {
    drop(name, QList<QUrl>{QUrl::fromLocalFile(QString::fromStdString(file))});
  }
  void drop(const char* name, const QList<QUrl>& addresses) {
    QMimeData data;
    data.setUrls(addresses);
    const auto& box = widget<QWidget>(name);
    const QPoint place = box.mapTo(window.get(), box.rect().center());
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window->windowHandle(), &enter);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window->windowHandle(), &drop);
    QApplication::processEvents();
  }
  std::string text(const char* name) { return widget<QLineEdit>(name).text().toStdString(); }
  std::string status() { return window->statusBar()->currentMessage().toStdString(); }

  const tests::TemporaryFolder folder;
  NamingEngine engine;
  app::WindowStart start;
  std::unique_ptr<frmTovak> window;
  tests::DialogScript dialogs;
};

TEST_F(MainWindow, ConvertsAFileThatWasChosenAndTyped) {
  const QString source = QString::fromStdString(folder.write("in.csv", "1,2,HILL,7,3.125\n5,6,DALE,,4.125\n"));
  open();
  EXPECT_EQ(window->windowTitle(), "Tovak  Version 1.2.3");
  dialogs.expect("QFileDialog", [&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Source File Name");
    static_cast<QFileDialog&>(dialog).selectFile(source);
    static_cast<QFileDialog&>(dialog).findChild<QLineEdit*>()->setText(source);
    static_cast<QFileDialog&>(dialog).QDialog::done(QDialog::Accepted);
  });
  choose("lstSourceFormat", run::source::CommaDelimited);
  EXPECT_EQ(text("txtSourceFile"), source.toStdString());
  dialogs.expect("QFileDialog", [](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Target File Name");
    dialog.reject();
  });
  choose("lstTargetFormat", run::target::CommaDelimited);
  EXPECT_TRUE(dialogs.finished());
  type("txtTargetFile", folder.file("out.csv").c_str());
  type("txtSourceProjection", "4");
  type("txtTargetProjection", "107m");
  EXPECT_EQ(widget<QLabel>("lblTargetSystem").text(), "State plane South, NAD27");
  EXPECT_TRUE(widget<QRadioButton>("btnTargetMetric").isChecked());
  click("adj11btn");
  if (!widget<QCheckBox>("ChkSuppress").isChecked()) click("ChkSuppress");
  click("cmdExecute");

  EXPECT_EQ(contentsOf(folder.file("out.csv")),
            "$Tovak#107M$ NAD27  (Meters)\n2.000,4.000,HILL,7,6.125,,,\n6.000,8.000,DALE,1,7.125,,,\n");
  ASSERT_EQ(dialogs.boxes.size(), 2U);
  EXPECT_EQ(dialogs.boxes[0].title, "Warning");
  EXPECT_EQ(dialogs.boxes[1].text, "Output File Written");
  EXPECT_EQ(engine.calls[0].source, "4");
  EXPECT_EQ(text("txtNextNumber") + " by " + text("txtIncrement"), "2 by 1");
  EXPECT_EQ(status(), "2 records read: 2 converted, 0 skipped, 0 passed over");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_FALSE(QSettings(QSettings::UserScope, "QtProject").isWritable()) << "the file dialog keeps nothing";
}

TEST_F(MainWindow, ShowsNoFurtherErrorsOnceAskedTo) {
  presetFiles("1,2,A\n3,4,B\n5,6,C\n7,8,D\n");
  engine.refusals = {{1, 7}, {3, 7}, {5, 7}};
  open();
  dialogs.expect("QMessageBox", [](QDialog& box) { box.accept(); });
  dialogs.expect("QMessageBox", [](QDialog& box) {
    static_cast<QMessageBox&>(box).checkBox()->setChecked(true);
    box.accept();
  });
  click("cmdExecute");
  ASSERT_EQ(dialogs.boxes.size(), 3U);
  EXPECT_EQ(dialogs.boxes[0].title, "TovakX Conversion Error");
  EXPECT_EQ(dialogs.boxes[0].text, "refused with 7");
  EXPECT_EQ(dialogs.boxes[1].detail, "line 2 of " + folder.file("in.csv"));
  EXPECT_TRUE(dialogs.boxes[1].offersToStop);
  EXPECT_EQ(dialogs.boxes[2].text, "Output File Written");
  EXPECT_FALSE(dialogs.boxes[2].offersToStop);
  EXPECT_NE(status().find("1 converted, 3 skipped"), std::string::npos) << status();
  EXPECT_EQ(window->statusBar()->toolTip().toStdString(), status());

  // Another run shows them again.
  click("cmdExecute");
  EXPECT_EQ(dialogs.boxes.size(), 7U);
}

TEST_F(MainWindow, RestoresThePointerWhenAMessageStopsTheRun) {
  presetFiles("1,2,A\n");
  start.settings.target.fileName = start.settings.source.fileName;
  open();
  click("cmdExecute");
  ASSERT_EQ(dialogs.boxes.size(), 1U);
  EXPECT_EQ(dialogs.boxes[0].title, "Conflicting file names");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_TRUE(widget<QPushButton>("cmdExecute").isEnabled());
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
  start.settings.SourceProjectionCode = start.settings.TargetProjectionCode = 4;
  start.settings.reportEnabled = true;
  start.settings.reportFileName = folder.file("day.rpt");
  open();
  dialogs.expect("frmTovakInput", [](QDialog& dialog) {
    dialog.findChild<QLineEdit*>("txtLatNorthY")->setText("a hill");
    dialog.findChild<QLineEdit*>("txtLongEastX")->setText("6");
    dialog.findChild<QPushButton*>("cmdConvert")->click();
  });
  dialogs.expect("QMessageBox", [](QDialog& box) { box.accept(); });
  dialogs.expect("frmTovakInput", [](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLineEdit*>("txtLatNorthY")->text(), "a hill");
    dialog.findChild<QLineEdit*>("txtLatNorthY")->setText("5");
    dialog.findChild<QPushButton*>("cmdConvert")->click();
  });
  dialogs.expect("frmTovakOutput", [](QDialog& dialog) {
    const QAbstractItemModel& rows = *dialog.findChild<QTableView*>("msfgOutput")->model();
    ASSERT_EQ(rows.rowCount(), 1);
    EXPECT_EQ(rows.index(0, 4).data().toString(), "6.000");
    dialog.accept();
  });
  dialogs.expect("frmTovakInput", [](QDialog& dialog) { dialog.reject(); });
  click("cmdExecute");
  EXPECT_TRUE(dialogs.finished());
  ASSERT_EQ(dialogs.boxes.size(), 1U);
  EXPECT_EQ(dialogs.boxes[0].title, " Tovak Keyboard Coordinate Entry");
}

TEST_F(MainWindow, FollowsTheRulesOfTheSelections) {
  start.settings.source.fileName = start.settings.target.fileName = "named";
  open();
  choose("lstTargetFormat", run::target::KrvBatch);
  EXPECT_EQ(widget<QComboBox>("lstSourceFormat").currentIndex(), run::source::KrvBatch);
  EXPECT_FALSE(widget<QLineEdit>("txtSourceProjection").isEnabled());
  EXPECT_TRUE(widget<QLineEdit>("txtSourceProjection").isVisible());
  choose("lstSourceFormat", run::source::GeodeticsSpecial);
  EXPECT_EQ(widget<QComboBox>("lstTargetFormat").currentIndex(), run::target::GeodeticsSpecial);
  EXPECT_TRUE(widget<QRadioButton>("btnTargetMetric").isChecked());

  choose("lstSourceFormat", run::source::Keyboard);
  EXPECT_FALSE(widget<QLineEdit>("txtSourceFile").isEnabled());
  type("txtSourceProjection", "50");
  EXPECT_EQ(widget<QLabel>("lblSourceSystem").text(), "unknown projection");
  EXPECT_NE(widget<QLabel>("lblSourceSystem").palette(), window->palette());
  EXPECT_FALSE(widget<QWidget>("frameLLfmt").isEnabled());
  click("btnSourceMetric");
  EXPECT_EQ(text("txtSourceProjection"), "50M");
  type("txtSourceProjection", "0m");
  EXPECT_EQ(widget<QLineEdit>("txtSourceProjection").cursorPosition(), 1) << "before the mark of metres";
  EXPECT_TRUE(widget<QWidget>("frameLLfmt").isEnabled());
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
  widget<QAction>("mnuFileSourceLayout").trigger();
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
  EXPECT_EQ(widget<QComboBox>("lstTargetLayout").currentIndex(), -1);
  EXPECT_EQ(widget<QComboBox>("lstTargetLayout").placeholderText(), "Own (as it was chosen)");
  EXPECT_EQ(window->selections().run.targetDelimited.fieldCodes, " 3~ 0~ 1~");
  choose("lstSourceFormat", run::source::Keyboard);
  EXPECT_FALSE(widget<QAction>("mnuFileSourceLayout").isEnabled() ||
               widget<QPushButton>("cmdSourceLayout").isEnabled());
  dialogs.expect("frmTovakComDel", [](QDialog& editor) { editor.reject(); });
  widget<QAction>("mnuToolsLayouts").trigger();
  EXPECT_TRUE(dialogs.finished());
}

TEST_F(MainWindow, FindsASystemByItsName) {
  open();
  dialogs.expect("frmTovakSystems", [](QDialog& list) {
    EXPECT_EQ(list.findChild<QTreeWidget*>()->topLevelItemCount(), 4);
    QTest::keyClicks(list.findChild<QLineEdit*>(), "nad27 south");
    QTest::keyClick(list.findChild<QLineEdit*>(), Qt::Key_Return);
  });
  click("cmdTargetChoose");
  EXPECT_TRUE(dialogs.finished());
  EXPECT_EQ(text("txtTargetProjection"), "107");
}

TEST_F(MainWindow, TakesWhatADroppedFileSaysOfItself) {
  const std::string name = folder.write("own.csv", "$Tovak#4M-1996$ NAD83(1996)  (Meters)\n1,2\n");
  // The keyboard's file box is disabled: the window takes the file.
  for (const std::int16_t format : {run::source::Keyboard, run::source::Sdms}) {
    SCOPED_TRACE(format);
    start.settings.sourceFormat = format;
    open();
    drop("txtSourceFile", name);
    EXPECT_EQ(widget<QComboBox>("lstSourceFormat").currentIndex(), run::source::Keyboard);
    EXPECT_EQ(text("txtSourceFile"), name);
    EXPECT_EQ(text("txtSourceProjection"), "4M");
    EXPECT_TRUE(widget<QRadioButton>("adj96btn").isChecked());
    drop("grpSource", QList<QUrl>());
    drop("grpSource", QList<QUrl>{QUrl("https://a.place/in.csv")});
    EXPECT_EQ(text("txtSourceFile"), name) << "neither is a file";
    EXPECT_NE(status(), "");
    drop("grpSource", folder.write("other.csv", "1,2\n"));
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
  const auto answer = [this](QMessageBox::StandardButton button) {
    dialogs.expect("QMessageBox", [button](QDialog& box) { static_cast<QMessageBox&>(box).button(button)->click(); });
  };
  answer(QMessageBox::Yes);
  drop("txtSourceFile", one);
  EXPECT_EQ(dialogs.boxes.at(0).title, "Multiple Map Sheets");
  EXPECT_EQ(text("txCsvtSrcFile"), one + "  (+1 more)");
  EXPECT_TRUE(widget<QWidget>("frameSrcCsvPrj").isVisible() && !widget<QWidget>("frameSrcMapPrj").isVisible());
  EXPECT_TRUE(!widget<QLineEdit>("txtSourceFile").isVisible() && widget<QRadioButton>("adjNonebtn").isChecked());
  EXPECT_EQ(widget<QComboBox>("lstCsvVertical").currentText(), "NGVD29");
  EXPECT_TRUE(widget<QRadioButton>("btnNgvd29").isChecked() && !widget<QWidget>("frameVertical").isEnabled());

  click("cmdExecute");
  EXPECT_EQ(dialogs.boxes.back().text, "You must select a horizontal reference option.");
  EXPECT_EQ(window->focusWidget(), &widget<QComboBox>("lstHorizontal"));
  emit widget<QComboBox>("lstHorizontal").textActivated("NAD83(2011) ADJ.");
  EXPECT_TRUE(widget<QRadioButton>("adj11btn").isChecked());
  EXPECT_EQ(widget<QLabel>("lblCsvSource").text(), "Projection = 0    (Latitude and Longitude : NAD83)");
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
  EXPECT_EQ(widget<QComboBox>("lstHorizontal").currentIndex(), -1);
  answer(QMessageBox::Cancel);
  drop("txCsvtSrcFile", one);
  EXPECT_EQ(widget<QComboBox>("lstSourceFormat").currentIndex(), run::source::Keyboard);
  EXPECT_TRUE(widget<QWidget>("frameSrcMapPrj").isVisible() && dialogs.finished());
}

TEST_F(MainWindow, OffersAFileForTheDatabase) {
  const std::string sheet = folder.write("ELMW1.csv", "NAME");
  for (const std::string& chosen : {std::string(), sheet, folder.write("points.txt", "")}) {
    SCOPED_TRACE(chosen);
    open();
    dialogs.expect("QFileDialog", [&chosen](QDialog& dialog) {
      dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(chosen));
      dialog.QDialog::done(chosen.empty() ? QDialog::Rejected : QDialog::Accepted);
    });
    choose("lstSourceFormat", run::source::GeodeticCsv);
    EXPECT_EQ(widget<QComboBox>("lstSourceFormat").currentIndex(),
              chosen == sheet ? run::source::GeodeticCsv : run::source::Keyboard);
  }
  EXPECT_EQ(dialogs.boxes.back().text, "The source file is not a CSV file.");
  // A sheet named on the command line is looked through once the window stands.
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

TEST_F(MainWindow, ShowsWhatTheProgramHasToSayAtItsStart) {
  start.messages = {{.text = "Source File Was Not Specified.", .title = "Command Line Error"}};
  open().completeStart();
  ASSERT_EQ(dialogs.boxes.size(), 1U);
  EXPECT_EQ(dialogs.boxes[0].title, "Command Line Error");
}

TEST_F(MainWindow, ExplainsEveryControlAndGivesEachItsOwnKey) {
  open();
  std::map<QChar, std::string> keys;
  for (QWidget* const part : window->findChildren<QWidget*>()) {
    QString shown;
    if (auto* const button = qobject_cast<QAbstractButton*>(part)) shown = button->text();
    if (auto* const label = qobject_cast<QLabel*>(part)) shown = label->text();
    if (auto* const menu = qobject_cast<QMenu*>(part)) shown = menu->title();
    const std::string name = part->objectName().toStdString();
    const qsizetype mark = shown.indexOf('&');
    if (mark >= 0) {
      const QChar key = shown[mark + 1].toUpper();
      EXPECT_TRUE(keys.emplace(key, name).second) << name << " and " << keys[key];
    }
    const bool ours = !name.empty() && !name.starts_with("qt_") && part->focusPolicy() != Qt::NoFocus &&
                      qobject_cast<QMenuBar*>(part) == nullptr;
    if (ours) {
      EXPECT_FALSE(part->toolTip().isEmpty()) << name;
    }
  }
}

}  // namespace
}  // namespace tovak::ui
