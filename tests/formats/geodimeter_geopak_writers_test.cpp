#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "formats/survey/geodimeter_writer.h"
#include "formats/survey/geopak_writer.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "support/scripted_engine.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"

namespace tovak::formats {
namespace {

using run::PointRecord;
using MakeWriter = decltype(&makeGeopakXyWriter);

/// What a writer puts into a file for one point.
std::string written(MakeWriter make, const PointRecord& point, int accuracy) {
  const tests::TemporaryFolder folder;
  run::RunSettings settings;
  settings.accuracy = accuracy;
  text::LineWriter lines;
  EXPECT_TRUE(lines.open(folder.file("out")));
  const auto writer = make({.lines = lines, .settings = settings, .targetSystem = {}});
  EXPECT_TRUE(writer->begin() && writer->write(point) && writer->end() && lines.commit());
  return tests::contentsOf(folder.file("out"));
}

TEST(GeodimeterAndGeopakWriters, WriteTheBytesOfAPoint) {
  constexpr MakeWriter kControl = makeGeodimeterControlWriter, kAlignment = makeGeodimeterAlignmentWriter;
  constexpr MakeWriter kXy = makeGeopakXyWriter, kNe = makeGeopakNeWriter;
  const struct {
    MakeWriter make;
    const char* number;
    const char* description;
    const char* station;
    const char* raField;
    const char* feature;
    double elevation;
    int accuracy;
    const char* bytes;
  } cases[] = {
      {kControl, " 1 ", "A \"B\"", "s", "r", "f", 12.3456, 0,
       "5= 1 \n4=A \"B\"\n37=150123.446\n38=500000.044\n39=12.346\n"},
      {kControl, "", "", "", "", "", -0.25, 1, "5=\n4=\n37=150123.45\n38=500000.04\n39=-0.25\n"},
      {kControl, "1", "", "", "", "", 0.04, 2, "5=1\n4=\n37=150123.4\n38=500000.0\n39=0.0\n"},
      {kControl, "1", "", "", "", "", 0, 3, "5=1\n4=\n37=150123\n38=500000\n39=\n"},
      {kControl, "1", "", "", "", "", 812.3, 5, "5=1\n4=\n37=150100\n38=500000\n39=800\n"},
      {kAlignment, "1", "d", " 1+25.5 ", " 1250.0 ", "f", 9, 0,
       "80= 1+25.5 \n37=150123.446\n38=500000.044\n64= 1250.0 \n"},
      {kAlignment, "1", "d", "", "PC", "f", 9, 2, "37=150123.4\n38=500000.0\n64=PC\n"},
      {kAlignment, "1", "d", "", "", "f", 9, 4, "37=150120\n38=500000\n"},
      {kNe, "17", "", "s", "r", "", 0, 2, "STO POI 17  N 150123.4  E 500000.0  EL 0.0\n"},
      {kNe, " A ", "6\" PIPE", "", "", "", -9.375, 1,
       "STO POI  A   N 150123.45  E 500000.04  EL -9.38  DES \"6\" PIPE\"\n"},
      {kNe, "", "", "", "", "CURB", 812.5, 3, "STO POI   N 150123  E 500000  EL 812  FEA CURB\n"},
      {kXy, "17", "D", "s", "r", "F", 9, 0, "STO POI 17  X 500000.044  Y 150123.446  EL 9.000  FEA F  DES \"D\"\n"},
      {kXy, "17", "", "", "", "", 815, 4, "STO POI 17  X 500000  Y 150120  EL 820\n"},
      {kXy, "17", "", "", "", "", -49, 5, "STO POI 17  X 500000  Y 150100  EL 0\n"},
  };
  for (const auto& c : cases) {
    PointRecord point;
    run::resetPoint(point);
    point.OutNorthLat = 150123.4457;
    point.OutEastLon = 500000.044;
    point.Elevation = c.elevation;
    point.pointNumber = c.number;
    point.description = c.description;
    point.station = c.station;
    point.raField = c.raField;
    point.featureCode = c.feature;
    EXPECT_EQ(written(c.make, point, c.accuracy), c.bytes);
  }
}

/// A listing of the samples as a command file. The engine adds 1 to northings, 2 to eastings, 3 to elevations.
std::string commandsFrom(const char* listing, std::int16_t targetFormat, int accuracy) {
  const tests::TemporaryFolder folder;
  run::RunSettings settings;
  settings.sourceFormat = run::source::GeopakPrintPoints;
  settings.targetFormat = targetFormat;
  settings.source.fileName = std::string(TOVAK_SAMPLES_FOLDER) + "/" + listing;
  settings.target.fileName = folder.file("out");
  settings.SourceProjectionCode = settings.TargetProjectionCode = 4;
  settings.accuracy = accuracy;
  settings.BatchMode = 2;
  tests::ScriptedEngine engine;
  tests::ScriptedPerson person;
  EXPECT_EQ(run::convert(settings, engine, formatTables(), person).outcome, run::RunOutcome::Finished);
  const std::string file = tests::contentsOf(folder.file("out"));
  EXPECT_EQ(file.find("$Tovak#"), 0U);
  return file.substr(file.find('\n') + 1);
}

TEST(GeopakWriters, TurnListingsIntoCommandFiles) {
  EXPECT_EQ(commandsFrom("geopak_xy.lst", run::target::GeopakXy, 0),
            "STO POI 101  X 2980352.432  Y 889338.282  EL 1024.638  FEA CURB  DES \"NE CORNER\"\n"
            "STO POI 102  X 2980364.910  Y 889402.755  EL 1025.100  DES \"LID, \"OLD\" TOWN\"\n"
            "STO POI CP-A103  X 2980377.006  Y 889467.031  EL 3.000  FEA MANHOLE\n"
            "STO POI 104  X 2980389.250  Y 889531.500  EL 1026.950\n"
            "STO POI 105  X 2980401.125  Y 889595.875  EL 1028.000\n"
            "$ END\n");
  EXPECT_EQ(commandsFrom("geopak_ne.lst", run::target::GeopakNe, 1),
            "STO POI 101  N 889338.28  E 2980352.43  EL 1024.64  FEA CURB  DES \"NE CORNER\"\n"
            "STO POI 102  N 889402.76  E 2980364.91  EL 1025.10  DES \"WEST RAIL\"\n"
            "STO POI CP-A103  N 889467.03  E 2980377.01  EL -9.50  FEA MANHOLE\n"
            "STO POI 104  N 889531.50  E 2980389.25  EL 3.00\n"
            "$ END\n");
}

}  // namespace
}  // namespace tovak::formats
