#include <vector>

#include "report/report_writer.h"
#include "support/program_fixture.h"

namespace tovak::app {
namespace {

using tests::contentsOf;
using tests::EnvironmentVariable;

/// What the window was opened with.
struct Opened {
  run::RunSettings settings;
  std::vector<run::Message> messages;
  bool hasEngine;
  std::string definitionsFile;
  std::string mapSheetCodes;
};

std::vector<Opened> opened;
bool moduleMissing = false;
run::ReportFormat report;

bool recordWindow(const WindowStart& start, std::string& reason) {
  if (moduleMissing) reason = "TovakWindow.so: no such file";
  report = start.formatTables.report;
  if (!moduleMissing)
    opened.push_back(
        {start.settings, start.messages, start.engine != nullptr, start.definitionsFile, start.mapSheetCodes});
  return !moduleMissing;
}

class WindowStartTest : public tests::ProgramFixture {
 protected:
  WindowStartTest() {
    opened.clear();
    moduleMissing = false;
  }

  ExitStatus run(const std::string& line) { return ProgramFixture::run(line, recordWindow); }

  const std::string files = folder.write("in.csv", "45.5,-93.5,A\n") + " " + folder.file("out.csv");
};

TEST_F(WindowStartTest, OpensEmptyWithTheReportOfTheDay) {
  EXPECT_EQ(run(" "), kFinished);
  ASSERT_EQ(opened.size(), 1U);
  const run::RunSettings& settings = opened[0].settings;
  EXPECT_TRUE(opened[0].messages.empty() && opened[0].hasEngine && settings.reportEnabled && settings.appendReport);
  EXPECT_EQ(settings.reportFileName, folder.file("AppData/QrAppsData/Tovak11-21-2026.rpt"));
  EXPECT_EQ(settings.TargetProjectionCode, 1);
  EXPECT_EQ(opened[0].definitionsFile, folder.file("AppData/QrAppsData/Tovak.cdf"));
  EXPECT_TRUE(report.today == aDay && report.joint == report::reportJoint);
  EXPECT_EQ(err.str(), "");

  EXPECT_EQ(opened[0].mapSheetCodes.find("ALDR1~ALDR2~"), 0U) << "the list beside the program";
  folder.write("AppData/QrAppsData/mapsheets.txt", "MINE1\nMINE2\n");
  run("");
  EXPECT_EQ(opened.back().mapSheetCodes, "MINE1~MINE2");
}

TEST_F(WindowStartTest, OpensWithWhatTheCommandLineSays) {
  EXPECT_EQ(run(files + " -SF2 -SP5 -TUM -A4 -Rmine.rpt"), kFinished);
  ASSERT_EQ(opened.size(), 1U);
  const run::RunSettings& settings = opened[0].settings;
  EXPECT_TRUE(opened[0].messages.empty()) << "what is missing can be chosen in the window";
  EXPECT_EQ(settings.sourceFormat, 1);
  EXPECT_EQ(settings.SourceProjectionCode, 4);
  EXPECT_TRUE(settings.target.metres && settings.reportEnabled);
  EXPECT_EQ(settings.latLongForm, text::AngleForm::DecimalDegrees);
  EXPECT_EQ(settings.reportFileName, "mine.rpt");
  EXPECT_EQ(contentsOf(folder.file("out.csv")), "(no file)");
}

TEST_F(WindowStartTest, TurnsFromABatchRunThatMeetsAProblem) {
  const struct {
    const char* options;
    const char* title;
    const char* text;
    ExitStatus status;
  } cases[] = {
      {" -B -SF2 -SP1 -SUE -TF2 -TP5", "Command Line Error", "Target File Units Were Not Specified.",
       kCommandLineProblem},
      {" -B -SF2 -SP1 -SUE -TF3 -TP1 -TUE", "Invalid target combination",
       "Vesko 80 column format not valid with NAD27 or NAD83 lat/long map projection", kStoppedByMessage},
      {" -SPx -B", "Command Line Error", "Number Cannot Be Read: -SPx", kCommandLineProblem},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.options);
    opened.clear();
    EXPECT_EQ(run(files + c.options), c.status);
    ASSERT_EQ(opened.size(), 1U);
    ASSERT_EQ(opened[0].messages.size(), 1U);
    EXPECT_EQ(opened[0].messages[0].title, c.title);
    EXPECT_EQ(opened[0].messages[0].text, c.text);
    EXPECT_EQ(opened[0].settings.BatchMode, 0);
    EXPECT_EQ(err.str(), "");
  }
}

TEST_F(WindowStartTest, StaysOutOfABatchRunThatGoesWellOrQuietly) {
  EXPECT_EQ(run(files + " -B -SF2 -SP1 -SUE -TF2 -TP5 -TUE -A4"), kFinished) << err.str();
  EXPECT_EQ(run(files + " -Q -SF2 -SP1 -SUE -TF3 -TP1 -TUE"), kStoppedByMessage);
  EXPECT_EQ(run(files + " -SPx -Q"), kCommandLineProblem);
  EXPECT_TRUE(opened.empty());
}

TEST_F(WindowStartTest, ShowsThatTheEngineIsMissing) {
  const EnvironmentVariable unwilling("TOVAKX_COMPONENT", TOVAK_BINARY_FOLDER "/unwilling_engine.so");
  EXPECT_EQ(run(""), kStoppedByMessage);
  ASSERT_EQ(opened.size(), 1U);
  EXPECT_FALSE(opened[0].hasEngine);
  ASSERT_EQ(opened[0].messages.size(), 1U);
  EXPECT_EQ(opened[0].messages[0].title, "Missing Component");
  EXPECT_EQ(opened[0].messages[0].detail, "no database");
  EXPECT_EQ(err.str(), "no database\n");
}

TEST_F(WindowStartTest, SaysThatTheWindowIsMissing) {
  moduleMissing = true;
  EXPECT_EQ(run(files + " -B"), kCommandLineProblem);
  EXPECT_NE(err.str().find("Command Line Error: Source File Units Were Not Specified."), std::string::npos);
  EXPECT_NE(err.str().find("Missing Component: The main window could not be opened; use -B or -Q to convert without "
                           "it.\nTovakWindow.so: no such file\n"),
            std::string::npos);
}

}  // namespace
}  // namespace tovak::app
