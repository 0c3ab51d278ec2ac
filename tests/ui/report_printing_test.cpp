// Reports printed to PDF files, from which pdftotext extracts the text.
#include "ui/report_printing.h"

#include <QFileDialog>
#include <QProcess>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStandardPaths>
#include <csignal>

#include <sys/resource.h>

#include "report/report_writer.h"
#include "ui/main_window.h"

namespace tovak::ui {
namespace {

using tests::control;

/// What pdftotext finds in a file.
QString pdfText(const QString& file, const char* option) {
  QProcess process;
  process.start("pdftotext", {option, file, "-"});
  EXPECT_TRUE(process.waitForFinished());
  return QString::fromUtf8(process.readAllStandardOutput());
}

/// The words of each line, without empty lines and pages.
QStringList linesOf(const QString& text) {
  QStringList lines;
  for (const QString& line : text.split('\n')) lines += line.simplified();
  lines.removeAll("");
  return lines;
}

class ReportPrinting : public MainWindow {
 protected:
  ReportPrinting() {
    start.formatTables.report = {report::makeReportWriter, "1.2.3", [] { return text::Date{2026, 11, 21}; }};
    std::string points;
    for (int i = 1; i <= 15; ++i) points += std::to_string(i) + ",2,HILL AND DALE,101,812.5\n";
    presetFiles(points);
    run::RunSettings& settings = start.settings;
    settings.reportEnabled = settings.appendReport = settings.printReport = true;
    settings.reportFileName = folder.write("day.rpt", "An earlier note.\n");
  }
  void SetUp() override {
    if (QStandardPaths::findExecutable("pdftotext").isEmpty()) GTEST_SKIP() << "pdftotext (poppler-utils) is missing";
  }

  /// Answers the print dialog with a file, whatever printers there are.
  void expectPrinting(const std::function<void(QDialog&)>& alsoChoose = [](QDialog&) {}) {
    dialogs.expect("QPrintDialog", [this, alsoChoose](QDialog& dialog) {
      auto& printers = control<QComboBox>(dialog, "printers");
      printers.setCurrentIndex(printers.findText("PDF", Qt::MatchContains));
      control<QLineEdit>(dialog, "filename").setText(pdf);
      alsoChoose(dialog);
      dialog.accept();
    });
  }

  const QString pdf = QString::fromStdString(folder.file("report.pdf"));
};

TEST_F(ReportPrinting, PrintsTheReportOfTheRunUnlessCancelled) {
  open();
  const auto closeGrid = [](QDialog& dialog) { dialog.accept(); };
  dialogs.expect("QPrintDialog", [](QDialog& dialog) { dialog.reject(); });
  dialogs.expect("frmTovakOutput", closeGrid);
  click("cmdExecute");
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"day.rpt", "in.csv", "out.csv"}));
  EXPECT_TRUE(dialogs.boxes.empty() && QApplication::overrideCursor() == nullptr);

  const std::size_t earlier = tests::contentsOf(start.settings.reportFileName).size();
  engine.refusals = {{3, 7}};
  expectPrinting();
  dialogs.expect("frmTovakOutput", closeGrid);
  click("cmdExecute");
  EXPECT_TRUE(dialogs.finished());
  QString expected = QString::fromStdString(tests::contentsOf(start.settings.reportFileName).substr(earlier));
  expected.replace(QRegularExpression("Tovak .*Date:"), "Calvadora Coordinate Conversions (Version 1.2.3) ");
  expected.replace(QRegularExpression(" Proj:"), " Projection: ");
  expected.remove(QRegularExpression(" *(Input  File|Output File):.*\n"));
  EXPECT_EQ(linesOf(pdfText(pdf, "-layout")), linesOf(expected));
}

TEST_F(ReportPrinting, KeepsTheWidestLineAndTheTallestPageOnThePaper) {
  const std::string wide(100, 'w');
  std::string tall = "line\n";
  while (tall.size() < std::size_t{5 * 96}) tall += "line\n";
  for (const std::string& text : {wide, wide + "\n" + tall.substr(5)}) {
    for (const QPageSize::PageSizeId paper : {QPageSize::Letter, QPageSize::A4}) {
      report::ReportSheets sheets(folder.write("report", text));
      QPrinter printer(QPrinter::HighResolution);
      printer.setOutputFileName(pdf);
      printer.setPageSize(QPageSize(paper));
      EXPECT_TRUE(sheets.open() && paintSheets(printer, sheets, [](int) { return true; }));
      const QString words = pdfText(pdf, "-bbox");
      const auto most = [&words](const char* attribute) {
        double largest = 0;
        auto all = QRegularExpression(QString(attribute) + "=\"([0-9.]+)\"").globalMatch(words);
        while (all.hasNext()) largest = std::max(largest, all.next().captured(1).toDouble());
        return largest;
      };
      const QRectF room = printer.pageLayout().paintRect(QPageLayout::Point);
      EXPECT_NEAR(std::max(most("xMax") / room.right(), most("yMax") / room.bottom()), 1, 0.125);
      EXPECT_TRUE(most("xMax") < room.right() + 1 && most("yMax") < room.bottom() + 1);
    }
  }
}

TEST_F(ReportPrinting, PrintsAndPreviewsAReportFileOfTheMenu) {
  std::string pages;
  for (int i = 1; i <= 201; ++i)
    pages += "page " + std::to_string(i) + (i % 3 == 1 ? "\n1 meter = 3.280833333\f\n" : "\n\f\n");
  folder.write("day.rpt", pages);
  open();
  const auto chooseReport = [](QDialog& dialog) {
    EXPECT_TRUE(dialog.windowTitle().startsWith("Report File to P"));
    EXPECT_EQ(static_cast<QFileDialog&>(dialog).selectedFiles().front().section('/', -1), "day.rpt");
    static_cast<QFileDialog&>(dialog).QDialog::done(QDialog::Accepted);
  };
  dialogs.expect("QFileDialog", chooseReport);
  expectPrinting([](QDialog& dialog) {
    control<QAbstractButton>(dialog, "printRange").click();
    control<QSpinBox>(dialog, "from").setValue(7);
    control<QSpinBox>(dialog, "to").setValue(8);
  });
  trigger("mnuFilePrint");
  EXPECT_EQ(linesOf(pdfText(pdf, "-layout")).join(','), "page 7,1 meter = 3.280833333,page 8");

  dialogs.expect("QFileDialog", chooseReport);
  dialogs.expect("frmTovakReport", [](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Print Preview of day.rpt");
    auto& page = control<QSpinBox>(dialog, "txtPage");
    EXPECT_EQ(page.maximum(), 201);
    // Any page is on the screen when its number is; the ink of a page differs from that of others.
    const auto ink = [&](int number) {
      page.setValue(number);
      return control<QWidget>(dialog, "sheet").grab().toImage();
    };
    EXPECT_EQ(page.value(), 200) << "behind the end of the earlier reports";
    const QImage newest = ink(200), last = ink(201), first = ink(1);
    EXPECT_TRUE(newest != last && last != first);
    EXPECT_TRUE(ink(200) == newest && ink(1) == first);
    dialog.reject();
  });
  trigger("mnuFilePreview");
  EXPECT_TRUE(dialogs.finished() && dialogs.boxes.empty());
}

TEST_F(ReportPrinting, TellsWhatCannotBePrinted) {
  report::ReportSheets missing(folder.file("none")), empty(folder.write("empty", "\f"));
  printReport(nullptr, missing);
  previewReport(nullptr, empty);
  // The size limit of files stands in for a full disk.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  expectPrinting([&before](QDialog&) {
    const rlimit limit = {.rlim_cur = 100, .rlim_max = before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  });
  report::ReportSheets sheets(start.settings.reportFileName);
  printReport(nullptr, sheets);
  setrlimit(RLIMIT_FSIZE, &before);
  std::string texts;
  for (const auto& box : dialogs.boxes) texts += box.text + '\n';
  EXPECT_EQ(texts, folder.file("none") + ": No such file or directory\nThere is nothing to print in " +
                       folder.file("empty") + "\nThe report could not be printed to " + pdf.toStdString() + "\n");
}

}  // namespace
}  // namespace tovak::ui
