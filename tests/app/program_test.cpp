#include "app/program.h"

#include <sstream>

#include <gtest/gtest.h>

#include "support/environment.h"
#include "support/temporary_folder.h"
#include "text/number.h"

namespace tovak::app {
namespace {

using tests::contentsOf;
using tests::EnvironmentVariable;

constexpr const char* kFeetToSouth = " -SF2 -SP1 -SUE -TF2 -TP5 -TUE -A4";

class Program : public testing::Test {
 protected:
  ExitStatus run(const std::string& line) {
    out.str({});
    err.str({});
    return runProgram(line, {.out = out, .err = err, .hasDisplay = hasDisplay, .today = {2026, 11, 21}});
  }

  /// Converts the points from `in.csv` to `out.csv`.
  ExitStatus convert(std::string_view points, const std::string& options) {
    return run(folder.write("in.csv", points) + " " + target() + " " + options);
  }

  std::string target() const { return folder.file("out.csv"); }

  const tests::TemporaryFolder folder;
  const EnvironmentVariable appData{"APPDATA", folder.file("AppData")};
  const EnvironmentVariable component{"TOVAKX_COMPONENT", nullptr};
  std::ostringstream out;
  std::ostringstream err;
  bool hasDisplay = false;
};

TEST_F(Program, ConvertsTheSampleWithinAMillimetre) {
  // Northing and easting of the first points in metres, from an independent computation.
  const double expected[][2] = {
      {762920.1128, 668495.8430}, {384833.3402, 914678.8212}, {381265.4730, 560075.6611}, {276622.8183, 769178.8977}};
  ASSERT_EQ(run(std::string(TOVAK_SAMPLES_FOLDER) + "/control.csv " + target() + " -B" + kFeetToSouth), kFinished)
      << err.str();
  EXPECT_EQ(err.str(), "12 records read: 12 converted, 0 skipped, 0 passed over\n");
  std::istringstream lines(contentsOf(target()));
  std::string line;
  std::getline(lines, line);
  EXPECT_EQ(line, "$Tovak#4$ NAD83  (Feet)");
  for (const auto& [northing, easting] : expected) {
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_NEAR(text::leadingNumber(line) * 12 / 39.37, northing, 0.0004) << line;
    EXPECT_NEAR(text::leadingNumber(line.substr(line.find(',') + 1)) * 12 / 39.37, easting, 0.0004) << line;
  }
}

TEST_F(Program, AccountsForEveryRecord) {
  const ExitStatus status = convert(
      "$ made by hand\nNorth,East,Name\nno delimiter\n45.5,-93.5,A\n456000,930000,B\n-93.5,45.5,swapped\n45,93,C\n",
      "-B -SF2 -SP1 -SUE -TF2 -TP5 -TUE");
  EXPECT_EQ(status, kNotEverythingConverted);
  EXPECT_EQ(err.str(),
            "7 records read: 2 converted, 2 skipped (1 by the engine; 1 for an angle; first in line 5: The minutes or "
            "seconds of a latitude or longitude are not below 60.), 3 passed over (1 without delimiter, first in line "
            "3; 1 with a zero coordinate, first in line 2; 1 comment, first in line 1)\n");
}

TEST_F(Program, TellsHowARunEnded) {
  const struct {
    const char* points;
    const char* options;
    ExitStatus status;
    const char* err;
  } cases[] = {
      {"45.5,-93.5,A\n", "-Q", kFinished, ""},
      {"45.5,-93.5,A\n12,12,B\n", "-Q", kNotEverythingConverted, ""},
      {"no points\n", "-Q", kNotEverythingConverted, ""},
      {"", "-B", kNotEverythingConverted, "0 records read: 0 converted, 0 skipped, 0 passed over\n"},
      {"45.5,-93.5,A\n", "-Q -TF4 -TP3", kStoppedByMessage,
       "Batch Mode Error: Units must be meters in NGS Blue Book files containing state plane coordinates.\n"},
      {"45.5,-93.5,A\n", "-B -SF6 -SP1", kStoppedByMessage, "Batch Mode Error: This format is not available yet.\n"},
      {"45.5,-93.5,A\n", "-Q -SP270", kCommandLineProblem,
       "Command Line Error: Improper Source Projection Was Specified.\n"},
      {"45.5,-93.5,A\n", "-B -SF9", kCommandLineProblem,
       "Command Line Error: Vesko Specific Batch Files for Database Applications\ncannot be run automatically from "
       "the command line.\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.options);
    EXPECT_EQ(convert(c.points, kFeetToSouth + std::string(" ") + c.options), c.status);
    EXPECT_EQ(err.str(), c.err);
    EXPECT_EQ(out.str(), "");
  }
}

TEST_F(Program, KeepsTheOldTargetUnlessTheRunReachesIt) {
  folder.write("out.csv", "old");
  convert("45.5,-93.5,A\n", "-Q -TF3 -TP1 -TUE -SF2 -SP1 -SUE");
  EXPECT_EQ(contentsOf(target()), "old");
  run(folder.write("in.csv", "1,2\n") + " " + folder.file("./in.csv") + " -Q" + kFeetToSouth);
  EXPECT_EQ(err.str(), "Batch Mode Error: Source file has same name as target file.\n");
  EXPECT_EQ(contentsOf(folder.file("in.csv")), "1,2\n");
}

TEST_F(Program, WritesNoReportInABatchRun) {
  EXPECT_EQ(convert("45.5,-93.5,A\n", "-Q -R" + target() + kFeetToSouth), kFinished) << err.str();
  EXPECT_EQ(convert("45.5,-93.5,A\n", "-Q -R" + folder.file("my.rpt") + kFeetToSouth), kFinished);
  EXPECT_EQ(contentsOf(folder.file("my.rpt")), "(no file)");
}

TEST_F(Program, WritesToADeviceThatIsFullUntilItSaysSo) {
  EXPECT_EQ(run(folder.write("in.csv", "45.5,-93.5,A\n") + " /dev/full -B" + kFeetToSouth), kStoppedByMessage);
  EXPECT_EQ(err.str().find("Batch Mode Error: /dev/full: No space left on device\n"), 0U);
}

TEST_F(Program, ReadsBackWhatItWrote) {
  // There and back through state plane North in metres; WayPoints+ on the way back.
  const std::string dms = "451234.56789,-931234.56789,HILL,12,812.345,,,\n";
  ASSERT_EQ(convert(dms, "-Q -SF2 -SP1 -SUE -TF2 -TP3 -TUM"), kFinished) << err.str();
  const std::string north = contentsOf(target());
  EXPECT_NE(north.find(",HILL,12,247.603,,,\n"), std::string::npos) << north;
  ASSERT_EQ(run(target() + " " + folder.file("back") + " -Q -SF2 -SP3 -SUM -TF14 -TUE"), kFinished) << err.str();
  const std::string back = contentsOf(folder.file("back.txt"));
  EXPECT_EQ(back.find("$Tovak#0$ NAD83  (Feet)\nDatum,North America 1983,GRS 80,0,-1.6E-7,0,0,0\nWP,DMS,12,45.1234567"),
            0U)
      << back;
  ASSERT_EQ(run(folder.file("back.txt") + " " + folder.file("again.csv") + " -Q -TF2 -SF13 -SP1 -SUE -TP1 -TUE"),
            kFinished);
  EXPECT_NE(contentsOf(folder.file("again.csv")).find("\n451234.567"), std::string::npos);
}

TEST_F(Program, ShowsHelpWithItsOwnStatus) {
  EXPECT_EQ(run(" -H "), kFinished);
  EXPECT_EQ(err.str(), "");
  for (const char* part : {"    14  WayPoints+ Format (to Garmin)\n", "     5  State plane South, NAD83\n",
                           "   104  Latitude and Longitude, NAD27\n", "-SUx", "-Yyear", "my-house.csv",
                           "a double quote in a description is written as it is"}) {
    EXPECT_NE(out.str().find(part), std::string::npos) << part;
  }
  EXPECT_EQ(convert("45.5,-93.5,A\n", "-B -SF2 my-house.csv"), kCommandLineProblem);
  EXPECT_EQ(out.str(), "");
  EXPECT_NE(err.str().find("Nothing was converted"), std::string::npos);
  EXPECT_EQ(contentsOf(target()), "(no file)");
}

TEST_F(Program, NeedsADisplayForItsWindow) {
  EXPECT_EQ(run(""), kCommandLineProblem);
  EXPECT_EQ(err.str().find("Command Line Error: A display is needed"), 0U);
  EXPECT_EQ(convert("45.5,-93.5,A\n", kFeetToSouth), kCommandLineProblem);
  EXPECT_EQ(contentsOf(target()), "(no file)");
}

TEST_F(Program, GoesOnWithoutAFaultyDefinitionsFile) {
  std::filesystem::create_directories(folder.path() / "AppData" / "QrAppsData");
  const std::string definitions = folder.write("AppData/QrAppsData/Tovak.cdf",
                                               "\x01"
                                               "Mine\n44\n");
  EXPECT_EQ(convert("45.5,-93.5,A\n", "-Q" + std::string(kFeetToSouth)), kFinished);
  EXPECT_EQ(err.str().find("Definitions File: " + definitions + ": line 2: the file ends inside a format\n"), 0U);
  EXPECT_EQ(contentsOf(definitions),
            "\x01"
            "Mine\n44\n");
}

TEST_F(Program, StopsWithoutItsEngine) {
  const EnvironmentVariable unwilling("TOVAKX_COMPONENT", TOVAK_BINARY_FOLDER "/unwilling_engine.so");
  EXPECT_EQ(convert("45.5,-93.5,A\n", "-Q" + std::string(kFeetToSouth)), kStoppedByMessage);
  EXPECT_EQ(err.str(), "Missing Component: The TovakX Object could not be loaded.\nno database\n");
  EXPECT_EQ(run("-h"), kFinished);
  EXPECT_NE(out.str().find("could not be loaded: no database"), std::string::npos);
}

}  // namespace
}  // namespace tovak::app
