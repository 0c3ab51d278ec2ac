#include "support/program_fixture.h"

namespace tovak::app {
namespace {

using tests::contentsOf;
using tests::EnvironmentVariable;

const std::string kFeetToSouth = " -SF2 -SP1 -SUE -TF2 -TP5 -TUE -A4 ";

class Program : public tests::ProgramFixture {
 protected:
  /// Converts the points from `in.csv` to `out.csv`.
  ExitStatus convert(std::string_view points, const std::string& options) {
    return run(folder.write("in.csv", points) + " " + target + " " + options);
  }

  const std::string target = folder.file("out.csv");
};

TEST_F(Program, ConvertsTheSampleWithinAMillimetre) {
  ASSERT_EQ(run(TOVAK_SAMPLES_FOLDER "/control.csv " + target + " -B" + kFeetToSouth), kDoubts) << err.str();
  EXPECT_EQ(err.str(),
            "12 records read: 12 converted, 0 skipped, 0 passed over\n"
            "8 points lie outside the usual area of State plane South, NAD83, the first in line 1\n");
  // The first point by an independent computation: 762920.1128 m north, 668495.8430 m east.
  EXPECT_EQ(contentsOf(target).find("$Tovak#4$ NAD83  (Feet)\n2503013.737,2193223.445,"), 0U) << contentsOf(target);
}

TEST_F(Program, TellsHowARunEnded) {
  const std::string point = "45.5,-93.5,A\n";
  const std::string kept = "No point was converted; " + target + " was left as it was.\n";
  const std::tuple<std::string, const char*, ExitStatus, std::string> cases[] = {
      {point, "-Q -R/nowhere/my.rpt", kFinished, ""},
      {"445959,-935959,A\n456000,930000,B\n", "-Q -A3", kNotEverythingConverted,
       "2 records read: 1 converted, 1 skipped (1 for an angle; first in line 2: The minutes or seconds of a latitude "
       "or "
       "longitude are not below 60.), 0 passed over\n1 point was refused because minutes or seconds are 60 or more "
       "(decimal degrees are read with -A4), in line 2\n"},
      {"no points\n", "-Q", kNotEverythingConverted,
       "1 record read: 0 converted, 0 skipped, 1 passed over (1 without delimiter, first in line 1)\n" + kept},
      {"", "-B", kNotEverythingConverted, "0 records read: 0 converted, 0 skipped, 0 passed over\n" + kept},
      {"$ made by hand\nNorth,East,Name\nno delimiter\n445959,-935959,A\n456000,930000,B\n-93,45,swapped\n", "-B -A3",
       kNotEverythingConverted,
       "6 records read: 1 converted, 2 skipped (1 by the engine; 1 for an angle; first in line 5: The minutes or "
       "seconds of a latitude or longitude are not below 60.), 3 passed over (1 without delimiter, first in line "
       "3; 1 with a zero coordinate, first in line 2; 1 comment, first in line 1)\n1 point was refused because minutes "
       "or "
       "seconds are 60 or more (decimal degrees are read with -A4), in line 5\n"},
      {point, "-Q -TF4 -TP3", kStoppedByMessage,
       "Batch Mode Error: Units must be meters in NGS Blue Book files containing state plane coordinates.\n"},
      {point, "-B -SF6 -SP1", kStoppedByMessage,
       "Batch Mode Error: This Trimble Coords.log file does not contain valid coordinates.  Please correct this.\n"},
      {point, "-Q -SP270", kCommandLineProblem, "Command Line Error: Improper Source Projection Was Specified.\n"},
      {point, "-SP\033 -Q", kCommandLineProblem, "Command Line Error: Number Cannot Be Read: -SP\\x1B\n"}};
  for (const auto& [points, options, status, said] : cases) {
    folder.write("out.csv", "old");
    EXPECT_EQ(convert(points, kFeetToSouth + options), status) << options;
    EXPECT_EQ(err.str() + out.str(), said);
    const bool stopped = status == kStoppedByMessage || status == kCommandLineProblem;
    EXPECT_EQ(contentsOf(target) == "old", stopped || said.ends_with(kept));
  }
  const std::string source = folder.write("in.csv", point);
  EXPECT_EQ(run(source + " " + folder.file("./in.csv") + " -Q" + kFeetToSouth), kStoppedByMessage);
  EXPECT_EQ(contentsOf(source), point);
  EXPECT_EQ(convert(point, "-Q -R" + target + kFeetToSouth), kFinished) << "a batch run writes no report";
  EXPECT_EQ(run(source + " /dev/full -B" + kFeetToSouth), kStoppedByMessage);
  EXPECT_EQ(err.str(),
            "Batch Mode Error: /dev/full: No space left on device\n1 record read; /dev/full received only a "
            "part of the points.\n");
}

TEST_F(Program, ShowsHelpWithItsOwnStatus) {
  EXPECT_EQ(run("--help"), kFinished);
  EXPECT_EQ(run(" -H "), kFinished);
  EXPECT_EQ(err.str(), "");
  for (const char* part : {"    14  WayPoints+ Format (to Garmin)\n", "     5  State plane South, NAD83\n",
                           "   104  Latitude and Longitude, NAD27\n", "my-house.csv"}) {
    EXPECT_NE(out.str().find(part), std::string::npos) << part;
  }
  EXPECT_EQ(convert("45.5,-93.5,A\n", "-B -SF2 my-house.csv"), kCommandLineProblem);
  EXPECT_EQ(out.str(), "");
  EXPECT_TRUE(err.str().ends_with("is in the argument my-house.csv\n"));
  EXPECT_EQ(contentsOf(target), "(no file)");
  EXPECT_EQ(run(""), kCommandLineProblem);
  EXPECT_EQ(err.str(), "Command Line Error: This build of Tovak has no window; use -B or -Q to convert.\n");
  const Surroundings io = {.out = out, .err = err, .window = openWindow};
  err.str({});
  EXPECT_EQ(runProgram("", io), kCommandLineProblem);
  EXPECT_EQ(err.str().find("Command Line Error: A display is needed"), 0U);
  err.str({});
  EXPECT_EQ(runArguments({"my \"best\" points.csv", "-B"}, io), kCommandLineProblem);
  EXPECT_EQ(err.str(), "Command Line Error: Quotation Marks Cannot Be Read: my \"best\" points.csv\n");
}

TEST_F(Program, GoesOnWithoutAFaultyDefinitionsFileButNotWithoutItsEngine) {
  std::filesystem::create_directories(folder.path() / "AppData" / "QrAppsData");
  const std::string definitions = folder.write("AppData/QrAppsData/Tovak.cdf", "\1Mine\n44\n");
  EXPECT_EQ(convert("45.5,-93.5,A\n", "-Q" + kFeetToSouth), kFinished);
  EXPECT_EQ(err.str().find("Definitions File: " + definitions + ": line 2: the file ends inside a format\n"), 0U);
  EXPECT_EQ(contentsOf(definitions), "\1Mine\n44\n");

  const EnvironmentVariable unwilling("TOVAKX_COMPONENT", TOVAK_BINARY_FOLDER "/unwilling_engine.so");
  EXPECT_EQ(convert("45.5,-93.5,A\n", "-Q" + kFeetToSouth), kStoppedByMessage);
  EXPECT_EQ(err.str(), "Missing Component: The TovakX Object could not be loaded.\nno database\n");
  EXPECT_EQ(run("-h"), kFinished);
  EXPECT_NE(out.str().find("could not be loaded: no database"), std::string::npos);
}

}  // namespace
}  // namespace tovak::app
