// What the main window shows before a run, compared with what the run then does: with the conversion engine itself. The
// point is a control point computed outside this program.
#include <QClipboard>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>

#include <sys/stat.h>

#include "run/engine_loader.h"
#include "support/environment.h"
#include "ui/main_window.h"
#include "ui/plan_widget.h"
#include "ui/preview_rows.h"

namespace tovak::ui {
namespace {

class Workplace : public MainWindow {
 protected:
  Workplace() {
    start.engine = created.engine.get();
    start.formatTables.areas = &*areas;
    start.settings.reportEnabled = false;
  }

  void show(const std::string& points, const char* source, const char* target) {
    std::filesystem::remove(folder.file("out.csv"));
    presetFiles(points);
    open();
    type("txtSourceProjection", source);
    type("txtTargetProjection", target);
    QApplication::processEvents();
  }
  QString verdict() { return widget<QLineEdit>("verdict").text(); }
  QString cell(int row, int column) {
    return widget<QTableView>("previewTable").model()->index(row, column).data().toString();
  }
  std::string target() { return tests::contentsOf(folder.file("out.csv")); }

  const tests::EnvironmentVariable data{"APPDATA", folder.file("AppData")};
  const run::EngineResult created = run::createEngine(run::kEngineIdentifier);
  const text::Result<run::UsualAreas> areas = run::readUsualAreas(TOVAK_SOURCE_FOLDER "/../data/areas.txt");
};

/// Without points and blanks, which some formats leave out.
std::string digits(std::string text) {
  std::erase_if(text, [](char c) { return c == '.' || c == ' '; });
  return text;
}

const char* const kPoints = "384833.340,914678.821,BEACON HILL,102,360.977\nno point\n384843.340,914678.821,B,,\n";

TEST_F(Workplace, ShowsTheFileThatIsThenWritten) {
  for (const std::int16_t format :
       {run::target::CommaDelimited, run::target::Vesko80Column, run::target::GeopakNe, run::target::BlueBook}) {
    SCOPED_TRACE(format);
    const bool lengths = format != run::target::BlueBook;
    show(kPoints, "4M", lengths ? "4M" : "0M");
    choose("lstTargetFormat", format);
    QApplication::processEvents();
    EXPECT_EQ(target(), "(no file)") << "nothing is written before the run";
    EXPECT_TRUE(verdict().startsWith("2 of 2 records would be converted")) << verdict().toStdString();
    EXPECT_TRUE(verdict().endsWith("1 line passed over"));
    EXPECT_EQ(cell(1, PreviewRows::kNumber), "1") << "the default number, not used up by the preview";
    const QString shown = widget<QPlainTextEdit>("targetText").toPlainText();
    const std::string northing = digits(cell(0, PreviewRows::kTargetNorth).toStdString());
    click("cmdExecute");
    EXPECT_EQ(QString::fromStdString(target()).replace("\r\n", "\n"), shown);
    EXPECT_TRUE(!northing.empty() && digits(target()).find(northing) != std::string::npos) << northing << '\n'
                                                                                           << target();
  }
}

TEST_F(Workplace, ConvertsWithWhatItsButtonsSuggest) {
  const struct {
    const char* points;
    const char* source;
    const char* label;
    const char* verdict;  ///< at first
  } cases[] = {
      {"384833.340;914678.821;A\n", "4M", "Delimiter: \";\"", "No point was found in 1 line"},
      {"45.554047374,-92.531381255,A,1\n", "0M", "Read angles as decimal degrees", "DD.MMSSsss"},
      {"914678.821,384833.340,A,1\n", "4M", "Exchange the two coordinates", "outside the usual area"},
      {"384833.340,914678.821,A,1\n", "4", "Source: State plane South, NAD83, metres", "outside the area served"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    show(c.points, c.source, "4M");
    EXPECT_TRUE(verdict().contains(c.verdict)) << verdict().toStdString();
    QPushButton* taken = nullptr;
    for (QPushButton* const button : window->findChildren<QPushButton*>()) {
      if (button->accessibleName() == c.label) taken = button;
    }
    ASSERT_NE(taken, nullptr);
    taken->click();
    QApplication::processEvents();
    EXPECT_EQ(verdict(), "1 of 1 record would be converted");
    EXPECT_FALSE(window->findChild<QPushButton*>("suggestion0"));
    click("cmdExecute");
    EXPECT_NE(target().find("\n384833.340,914678.821,A,"), std::string::npos) << target();
  }
}

TEST_F(Workplace, SelectsAPointInTableAndPlan) {
  show(kPoints, "4M", "0");
  auto& table = widget<QTableView>("previewTable");
  auto& plan = widget<PlanWidget>("plan");
  widget<QTabWidget>("previewTabs").setCurrentIndex(1);
  ASSERT_EQ(plan.model().points.size(), 2U);
  EXPECT_NEAR(plan.model().points[0].place.latitude, 45.554047374, 1e-8);
  EXPECT_NEAR(plan.model().points[0].place.longitude, -92.531381255, 1e-8);
  table.selectRow(1);
  EXPECT_EQ(plan.selectedRow(), 1);
  QTest::keyClick(&plan, Qt::Key_PageUp);
  EXPECT_EQ(table.currentIndex().row(), 0);
}

TEST_F(Workplace, ShowsTheResultUntilSomethingIsChanged) {
  show(std::string(kPoints) + "1.000,2.000,FAR,9,\n", "4M", "0");
  const auto table = [this] {
    QString all;
    for (int row = 0; row < 3; ++row) {
      for (int column = 0; column < PreviewRows::kColumns; ++column) all += cell(row, column) + '|';
    }
    return all.replace("|2|B|", "|1|B|");  // the default number has been used
  };
  const QString before = table();
  click("chkAllowBlank");
  auto& tabs = widget<QTabWidget>("previewTabs");
  auto& list = widget<QTableView>("unconvertedTable");
  tabs.setCurrentIndex(1);
  click("cmdExecute");
  QApplication::processEvents();
  EXPECT_EQ(tabs.currentIndex(), 2);
  EXPECT_EQ(text("resultHeadline"), "2 of 3 points were converted");
  ASSERT_EQ(dialogs.boxes.size(), 2U);
  EXPECT_NE(dialogs.boxes[0].detail.find("Northing 1.000, easting 2.000"), std::string::npos)
      << dialogs.boxes[0].detail;
  EXPECT_TRUE(dialogs.boxes[1].detail.starts_with("4 records read: 2 converted, 1 skipped")) << dialogs.boxes[1].detail;
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  list.setFocus();
  list.selectRow(0);
  QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "2\tno point\tNo delimiter\n");
  dialogs.expectFile(folder.file("list.txt"));
  click("cmdSaveList");
  const std::string saved = tests::contentsOf(folder.file("list.txt"));
  EXPECT_NE(saved.find("\n4\t1.000,2.000,FAR,9,\t"), std::string::npos) << saved;
  EXPECT_TRUE(enabled("cmdOpenTarget") && !enabled("cmdOpenReport") && !enabled("cmdShowGrid"));
  tabs.setCurrentIndex(1);
  EXPECT_EQ(widget<PlanWidget>("plan").model().points.size(), 2U) << "the refused one has no place";
  tabs.setCurrentIndex(2);

  click("cmdMore");
  QApplication::processEvents();
  EXPECT_EQ(tabs.currentIndex(), 2) << "nothing was changed";
  click("btnSourceEnglish");
  QApplication::processEvents();
  EXPECT_EQ(tabs.currentIndex(), 1);
  click("btnSourceMetric");
  click("chkAllowBlank");
  QApplication::processEvents();
  EXPECT_EQ(table(), before);
}

TEST_F(Workplace, FoldsUsualOptionsAndTheReportAway) {
  start.settings.reportEnabled = true;
  show(kPoints, "4M", "0");
  EXPECT_FALSE(visible("grpOptions") || visible("grpReport") || visible("frameLLfmt"));
  // The run complains about a box that is folded away.
  click("cmdExecute");
  EXPECT_TRUE(visible("txtPrintFile"));
  // The file's first line brings an adjustment; what the person folds away then stays so.
  click("cmdMore");
  EXPECT_FALSE(visible("grpOptions"));
  drop("grpSource", folder.write("own.csv", "$Tovak#0-2011$ NAD83(2011)  (Feet)\n455540.47374,-925313.81255,A,1,,\n"));
  EXPECT_TRUE(visible("adj11btn") && checked("adj11btn") && visible("frameLLfmt"));
  click("cmdMore");
  click("btnDD");
  EXPECT_FALSE(visible("grpOptions"));
}

/// Nothing is below or beside the edge of the window, whatever size of letters.
TEST_F(Workplace, OpensWithoutScrolling) {
  const QFont usual = QApplication::font();
  for (const int points : {10, 11}) {
    QFont font = usual;
    font.setPointSize(points);
    QApplication::setFont(font);
    show(kPoints, "0", "4M");
    const auto& area = widget<QScrollArea>("scrollArea");
    EXPECT_FALSE(area.verticalScrollBar()->isVisible() || area.horizontalScrollBar()->isVisible()) << points;
  }
  QApplication::setFont(usual);
}

TEST_F(Workplace, ReadsBackWhatItWroteAfterASwap) {
  show(kPoints, "4M", "0");
  click("cmdExecute");
  std::filesystem::remove(folder.file("in.csv"));
  click("cmdSwap");
  QApplication::processEvents();
  EXPECT_TRUE(verdict().startsWith("2 of 2 records would be converted")) << verdict().toStdString();
  click("cmdExecute");
  const std::string back = tests::contentsOf(folder.file("in.csv"));
  EXPECT_TRUE(back.find("\n384833.340,914678.821,BEACON HILL,102,") != std::string::npos) << back;
}

TEST_F(Workplace, LooksIntoOrdinaryFilesOnly) {
  const std::string fifo = folder.file("fifo");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  for (const std::string& name : {fifo, std::string("/dev/zero"), std::string("/dev/tty")}) {
    show(kPoints, "4M", "0");
    type("txtSourceFile", name.c_str());
    QApplication::processEvents();
    EXPECT_EQ(verdict().toStdString(), name + " is no ordinary file and is not looked into.");
    drop("grpSource", name);
    click("cmdSwap");
    QApplication::processEvents();
    EXPECT_EQ(widget<QTableView>("previewTable").model()->rowCount(), 0);
  }
}

}  // namespace
}  // namespace tovak::ui
