#include "formats/survey/sdms_writer.h"

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "run/projection_code.h"
#include "support/allocation_counter.h"
#include "support/scripted_engine.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"

namespace tovak::formats {
namespace {

using run::PointRecord;
using run::RunSettings;

/// What the writer puts into a file for `point`, its header aside.
std::string written(const PointRecord& point, const RunSettings& settings) {
  const tests::TemporaryFolder folder;
  text::LineWriter lines;
  EXPECT_TRUE(lines.open(folder.file("out")));
  const auto writer = makeSdmsWriter({.lines = lines, .settings = settings, .targetSystem = {}});
  EXPECT_TRUE(writer->write(point) && writer->end() && lines.commit());
  return tests::contentsOf(folder.file("out"));
}

PointRecord samplePoint() {
  PointRecord point;
  run::resetPoint(point);
  point.OutNorthLat = 150000.4565;
  point.OutEastLon = 500000.5;
  return point;
}

RunSettings gridTarget() {
  RunSettings settings;
  settings.TargetProjectionCode = 4;
  return settings;
}

TEST(SdmsWriter, WritesLinesInTheirOrder) {
  PointRecord point = samplePoint();
  point.sectionLine = "AC:TP";
  point.pointNumber = "17";
  point.description = "not written";
  point.comment = "not written";
  point.phField = "DSK";
  point.owField = "VSK ";
  point.odField = "TO 1";
  point.Elevation = 812.35;
  point.geoidHeight = "-27.25 m";
  point.ellipsoidHeight = "785.1";
  point.featureCode = "MON";
  point.figure = "L1";
  point.furtherFields = {"ZQ:7", "TM:0815", "left from the last point"};
  point.furtherFieldCount = 2;
  point.raField = "ra";
  point.station = "1+00";
  point.offset = "2.5";
  EXPECT_EQ(written(point, gridTarget()),
            "AC:TP\nPN:17\nPH:DSK\nOW:VSK \nOD:TO 1\nYC:150000.456\nXC:500000.500\nZC:812.350\nHG:-27.250\nHE:785.100\n"
            "FE:MON\nFG:L1\nZQ:7\nTM:0815\nRA:ra\nST:1+00\nOF:2.5\n");
}

TEST(SdmsWriter, LeavesOutWhatIsEmpty) {
  PointRecord point = samplePoint();
  point.odField = "XXXX";
  point.geoidHeight = "0.000";
  point.elevationDecimals = 3;
  const struct {
    int accuracy;
    const char* text;
  } cases[] = {
      {0, "AC:CP\nYC:150000.456\nXC:500000.500\n"}, {1, "AC:CP\nYC:150000.46\nXC:500000.50\n"},
      {2, "AC:CP\nYC:150000.5\nXC:500000.5\n"},     {3, "AC:CP\nYC:150000\nXC:500000\n"},
      {5, "AC:CP\nYC:150000\nXC:500000\n"},
  };
  RunSettings settings = gridTarget();
  for (const auto& c : cases) {
    settings.accuracy = c.accuracy;
    EXPECT_EQ(written(point, settings), c.text) << c.accuracy;
  }
}

TEST(SdmsWriter, PacksAngles) {
  PointRecord point = samplePoint();
  RunSettings settings;
  settings.TargetProjectionCode = 103;
  settings.accuracy = 3;
  const struct {
    double latitude;
    double longitude;
    const char* text;
  } cases[] = {
      {45.20960219166667, -93.5, "AC:CP\nLT:451234.56789\nLG:933000.00000\n"},
      {45.9999999999, -100.0875, "AC:CP\nLT:460000.00000\nLG:1000515.00000\n"},
      {-5.25, 7.5, "AC:CP\nLT:-051500.00000\nLG:-073000.00000\n"},
  };
  for (const auto& c : cases) {
    point.OutNorthLat = c.latitude;
    point.OutEastLon = c.longitude;
    EXPECT_EQ(written(point, settings), c.text);
  }
}

TEST(SdmsWriter, ConvertsStationsBetweenUnits) {
  const struct {
    bool toMetres;
    const char* station;
    const char* offset;
    const char* text;
  } cases[] = {
      {true, "40+50.414", "-11.482917", "ST:1+234.569\nOF:-3.500000\n"},
      {true, "1234.57", " 39.37 ", "ST:0+376.298\nOF:12.000000\n"},
      {true, "0+00", "0", "ST:0+000.000\nOF:0.000000\n"},
      {true, "-1+23.45", "", "ST:-0+037.628\n"},
      {true, "32+80.833", "L2", "ST:1+000.000\nOF:L2\n"},
      {true, "PI 12+34", "1e3", "ST:PI 12+34\nOF:1e3\n"},
      {true, "1+2+3", "1+2", "ST:1+2+3\nOF:1+2\n"},
      {false, "1+234.567", "-3.5", "ST:40+50.41\nOF:-11.482917\n"},
      {false, "0+000.500", "", "ST:0+01.64\n"},
      {false, "1234+567.000", "", "ST:40504+08.57\n"},
      {false, "30.480", "", "ST:1+00.00\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.station);
    RunSettings settings = gridTarget();
    settings.source.metres = !c.toMetres;
    settings.target.metres = c.toMetres;
    PointRecord point = samplePoint();
    point.station = c.station;
    point.offset = c.offset;
    const std::string text = written(point, settings);
    EXPECT_EQ(text.substr(text.find("ST:")), c.text);
  }
}

/// A run from one file of text into another, through an engine that adds 1, 2 and 3 to a point.
struct Conversion {
  explicit Conversion(std::string_view source) {
    settings.sourceFormat = run::source::Sdms;
    settings.targetFormat = run::target::Sdms;
    settings.SourceProjectionCode = settings.TargetProjectionCode = 4;
    settings.target.projectionText = "4";
    settings.source.fileName = folder.write("in", source);
    settings.target.fileName = folder.file("out");
    settings.BatchMode = 2;
  }

  std::string convert() {
    result = run::convert(settings, engine, formatTables(), person);
    return tests::contentsOf(settings.target.fileName);
  }

  tests::TemporaryFolder folder;
  RunSettings settings;
  tests::ScriptedEngine engine;
  tests::ScriptedPerson person;
  run::RunResult result;
};

constexpr std::string_view kFieldBook =
    "$Tovak#4$ NAD27  (Meters)\nHD:NAD27\ncm:projection=Old\nCM:Units=METERS\nCM:Control survey\n\nDT:0514\n"
    "AC:eq\nSN:1\n\n  CM:Checked\nAC:PR\nPJ:River\n"
    "AC:CP\nPN:1\nYC:10\nXC:20\nZQ:7\n"
    "AC:EQ\nSN:2\n"
    "AC:NT\nCM:Rain\nZQ:8\nAC:SS\nCM:Half\nST:1+00\n"
    "AC:TP\nPN:2\nPD:HILL\nYC:11\nXC:21\nZC:5\nST:1+00\n"
    "AC:CP\nPN:3\nYC:66\nXC:22\n"
    "AC:PR\nPJ:Last";

TEST(SdmsConversion, CopiesWhatIsNoPointToItsOwnKindAlone) {
  Conversion conversion(kFieldBook);
  conversion.settings.adjustment = run::Adjustment::Nad83_1996;
  conversion.engine.refusals[66] = 7;
  EXPECT_EQ(
      conversion.convert(),
      "$Tovak#4-1996$ NAD83(1996)  (Feet)\nHD:NAD83(1996)\nCM:Projection=4\nCM:Units=FEET\nCM:Control survey\nDT:0514\n"
      "AC:eq\nSN:1\nCM:Checked\nAC:PR\nPJ:River\n"
      "AC:CP\nPN:1\nYC:11.000\nXC:22.000\nZC:3.000\nZQ:7\n"
      "AC:EQ\nSN:2\nAC:NT\nCM:Rain\nZQ:8\n"
      "AC:TP\nPN:2\nYC:12.000\nXC:23.000\nZC:8.000\nST:1+00\n"
      "AC:PR\nPJ:Last\n");
  EXPECT_EQ(conversion.result.counts.converted, 2U);
  EXPECT_EQ(conversion.result.counts.zeroCoordinate.count, 2U);
  EXPECT_EQ(conversion.result.counts.comment.count, 1U);

  Conversion toPointsAlone(kFieldBook);
  toPointsAlone.settings.targetFormat = run::target::CommaDelimited;
  EXPECT_EQ(toPointsAlone.convert(),
            "$Tovak#4$ NAD83  (Feet)\n11.000,22.000,,1,3.000,,,\n12,23,HILL,2,8,,,\n67.000,24.000,,3,3.000,,,\n");
}

TEST(SdmsConversion, NamesTheTargetInItsHeader) {
  Conversion project("AC:CP\nYC:1\nXC:2\n");
  project.settings.TargetProjectionCode = run::kUserDefinedProject;
  project.settings.target.metres = true;
  project.engine.project = "Bridge 9~263M";
  EXPECT_EQ(project.convert(),
            "$Tovak#263M$ NAD27 Bridge 9 (Meters)\nHD:NAD27 Bridge 9\nCM:Projection=263M\nCM:Units=METERS\n"
            "AC:CP\nPN:1\nYC:2.000\nXC:4.000\nZC:3.000\n");
  Conversion angles("AC:CP\nPN:A\nYC:44.5\nXC:-92.25\n");
  angles.settings.TargetProjectionCode = 0;
  EXPECT_EQ(angles.convert(),
            "$Tovak#4$ NAD83  (Feet)\nHD:NAD83\nCM:Projection=4\nAC:CP\nPN:A\nLT:453000.00000\nLG:901500.00000\n"
            "ZC:3.000\n");
}

std::size_t allocationsFor(int points) {
  std::string lines = "CM:head\n";
  for (int i = 0; i < points; ++i) {
    lines +=
        "AC:EQ\nSN:a serial number that outgrows short strings\nAC:NT\nCM:a remark that outgrows every short string\n"
        "AC:CP\nPN:a number that outgrows short strings\nYC:1\nXC:2\nZQ:a line of another tag that outgrows\nZR:7\n"
        "ST:12+34.57\nOF:3\n";
  }
  Conversion conversion(lines);
  conversion.settings.target.metres = true;
  conversion.engine.calls.reserve(10000);
  const std::size_t before = tests::allocationCount();
  conversion.result = run::convert(conversion.settings, conversion.engine, formatTables(), conversion.person);
  EXPECT_EQ(conversion.result.counts.converted, static_cast<std::uint64_t>(points));
  return tests::allocationCount() - before;
}

TEST(SdmsConversion, AllocatesNothingPerPoint) {
  allocationsFor(1);  // what is made once in the life of the program
  EXPECT_EQ(allocationsFor(5000), allocationsFor(10));
}

}  // namespace
}  // namespace tovak::formats
