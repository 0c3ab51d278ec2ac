// Jobs in the main window.
#include <QClipboard>
#include <QFileDialog>

#include <gtest/gtest.h>

#include "selection/job_file.h"
#include "ui/main_window.h"

namespace tovak::ui {
namespace {

using tests::contentsOf;

class WindowJobs : public MainWindow {
 protected:
  std::string title() { return window->windowTitle().toStdString() + (window->isWindowModified() ? " changed" : ""); }
  std::string clipboard() { return QApplication::clipboard()->text().toStdString(); }
  const std::string job = folder.file("night.tovak");
};

TEST_F(WindowJobs, AreSavedOpenedAndAskedAbout) {
  presetFiles("1,2,A\n");
  start.settings.reportEnabled = true;
  start.settings.reportFileName = start.dailyReport = folder.file("day.rpt");
  start.delimitedFormats.push_back({.name = "Own", .delimiter = ';', .fieldCodes = " 3~ 0~ 1~"});
  open();
  choose("lstTargetLayout", 1);
  type("txtDescription", "nightly");
  dialogs.expectFile(job);
  trigger("mnuFileSaveJob");
  QApplication::processEvents();
  EXPECT_EQ(title(), "night.tovak[*] - Tovak  Version 1.2.3");
  const std::string saved = contentsOf(job);
  EXPECT_NE(saved.find("source file = in.csv\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("report file =\n"), std::string::npos) << "that of the day";

  click("adj11btn");
  QApplication::processEvents();
  EXPECT_TRUE(title().ends_with(" changed"));
  trigger("mnuFileSaveJob");
  EXPECT_NE(contentsOf(job).find("adjustment = 2011\n"), std::string::npos);

  // Another window, whose definitions file has no such layout.
  start.delimitedFormats.pop_back();
  start.settings = {};
  open();
  EXPECT_EQ(title(), "Tovak  Version 1.2.3");
  drop("txtSourceFile", job);
  EXPECT_EQ(title(), "night.tovak[*] - Tovak  Version 1.2.3");
  EXPECT_EQ(text("txtTargetFile") + ' ' + text("txtDescription"), folder.file("out.csv") + " nightly");
  EXPECT_EQ(window->selections().run.targetDelimited.delimiter, ';');
  EXPECT_TRUE(checked("adj11btn"));
  click("adjNonebtn");
  dialogs.expectBox(QMessageBox::Cancel);
  EXPECT_FALSE(window->close());
  dialogs.expectBox(QMessageBox::No);
  EXPECT_TRUE(window->close());
  EXPECT_NE(contentsOf(job).find("adjustment = 2011\n"), std::string::npos);

  // A job as the only argument, changed by a switch.
  const text::Result<selection::Job> read = selection::readJob(job, start.formatTables);
  start.job = *read;
  start.jobFile = job;
  start.settings = read->settings;
  open();
  window->completeStart();
  QApplication::processEvents();
  EXPECT_EQ(title(), "night.tovak[*] - Tovak  Version 1.2.3");
  EXPECT_EQ(window->selections().run.targetDelimited.delimiter, ';');
  start.settings.accuracy = text::Accuracy::Ten;
  open();
  window->completeStart();
  QApplication::processEvents();
  EXPECT_TRUE(title().ends_with(" changed"));
}

TEST_F(WindowJobs, ThatCannotBeReadChangeNothing) {
  presetFiles("1,2,A\n");
  folder.write("night.tovak", "Tovak job 1\nsource form = delimited\n");
  open();
  drop("txtSourceFile", job);
  ASSERT_EQ(dialogs.boxes.size(), 1U);
  EXPECT_EQ(dialogs.boxes[0].text, job + ": line 2: \"source form\" is no key of a job");
  EXPECT_EQ(title(), "Tovak  Version 1.2.3");
  EXPECT_EQ(text("txtSourceFile"), folder.file("in.csv"));
}

TEST_F(WindowJobs, HaveACommandLineWhereOneSaysTheSame) {
  presetFiles("1,2,A\n");
  start.settings.target.fileName = folder.file("it's out.csv");
  open();
  click("adj07btn");
  trigger("mnuFileCommand");
  EXPECT_EQ(clipboard(), "tovak " + folder.file("in.csv") + " '" + folder.file("it'\\''s out.csv") +
                             "' -B -SF2 -SP5 -SUE -TF2 -TP5 -TUE -Y2007");
  type("txtTargetFile", "/nowhere/my-house.csv");
  trigger("mnuFileCommand");
  window->findChild<QLineEdit*>("txtTargetFile")->clear();
  type("txtTargetFile", "out.csv");
  click("chkAllowBlank");
  trigger("mnuFileCommand");
  ASSERT_EQ(dialogs.boxes.size(), 2U);
  EXPECT_NE(dialogs.boxes[0].detail.find("asks for help"), std::string::npos);
  EXPECT_EQ(dialogs.boxes[1].detail, "No switch says: blank numbers = yes");
}

}  // namespace
}  // namespace tovak::ui
