#include "formats/delimited/delimited_writer.h"

#include <gtest/gtest.h>

#include "formats/delimited/built_in_formats.h"
#include "support/temporary_folder.h"

namespace tovak::formats {
namespace {

using run::DelimitedFormat;
using run::PointRecord;

PointRecord samplePoint() {
  PointRecord point;
  run::resetPoint(point);
  point.OutNorthLat = 150000.45678;
  point.OutEastLon = 500000.5;
  point.pointNumber = " 17 ";
  point.description = "IRON PIPE";
  return point;
}

/// What a writer puts into a file for one point.
std::string written(const DelimitedFormat& format, const PointRecord& point, std::int16_t code = 4,
                    decltype(&makeDelimitedWriter) make = makeDelimitedWriter) {
  const tests::TemporaryFolder folder;
  run::RunSettings settings;
  settings.targetDelimited = format;
  settings.TargetProjectionCode = code;
  text::LineWriter lines;
  EXPECT_TRUE(lines.open(folder.file("out")));
  const auto writer = make({.lines = lines, .settings = settings, .targetSystem = {}});
  EXPECT_TRUE(writer->begin() && writer->write(point) && writer->end() && lines.commit());
  return tests::contentsOf(folder.file("out"));
}

TEST(DelimitedWriter, JoinsFieldsByTheLayout) {
  PointRecord point = samplePoint();
  point.geoidHeight = " -27.1";
  point.ellipsoidHeight = "0.000";
  point.comment = "note";
  point.anythingElse = "x,y";
  point.station = " 1+00 ";
  point.attributes = {" a1 ", "a2", " d ", " t ", "a5", "a6", "a7", "a8", "a9"};
  const struct {
    const char* codes;
    char delimiter;
    const char* line;
  } cases[] = {
      {" 0~ 1~ 4~ 3~", ',', "150000.457,500000.500,,17\n"},
      {" 3~ 25~", ',', "17;note\n"},
      {" 3~ 25~ 24~", '\t', "17;note\tnote\n"},
      {" 25~", ',', "note\n"},
      {" 5~ 6~ 2~", ',', "-27.100,,IRON PIPE\n"},
      {" 2~ 7~ 3~", ',', "IRON PIPE,x,y\n"},
      {" 8~ 9~ 10~ 13~ 15~ 23~", ';', ";;;1+00;a1;a9\n"},
      {" 3~ 60~ 2~", ',', "17,,IRON PIPE\n"},
      {" 98~ 3~ 99~ 2~", ',', "WP,DMS,17,d,t,IRON PIPE\n"},
      {" 3~ 98~ 2~", ',', "WP,DMS,IRON PIPE\n"},
      {"", ',', "\n"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(written({.delimiter = c.delimiter, .fieldCodes = c.codes}, point), c.line) << c.codes;
  }
}

TEST(DelimitedWriter, EchoesThePrecisionOfTheElevationInEveryNumber) {
  const struct {
    int decimals;
    double elevation;
    const char* line;
  } cases[] = {
      {0, 812.3456, "150000.457,500000.500,812.346,-27.500\n"},
      {1, 812.35, "150000.46,500000.50,812.35,-27.50\n"},
      {2, 812.3, "150000.5,500000.5,812.3,-27.5\n"},
      {3, 812, "150000,500000,812,-28\n"},
      {0, 0, "150000.457,500000.500,,-27.500\n"},
      {3, 0.4, "150000,500000,0,-28\n"},
  };
  for (const auto& c : cases) {
    PointRecord point = samplePoint();
    point.elevationDecimals = c.decimals;
    point.Elevation = c.elevation;
    point.geoidHeight = "-27.5";
    EXPECT_EQ(written({.fieldCodes = " 0~ 1~ 4~ 5~"}, point), c.line);
  }
}

TEST(DelimitedWriter, WritesAnglesInEachForm) {
  PointRecord point = samplePoint();
  point.elevationDecimals = 3;
  const struct {
    double latitude;
    double longitude;
    std::uint8_t form;
    const char* line;
  } cases[] = {
      {45.20960219166667, -93.5, 0, "451234.56789,-933000.00000\n"},
      {45.20960219166667, -93.5, 1, "45.123456789,-93.300000000\n"},
      {45.20960219166667, -93.5, 2, "45 12 34.56789,-93 30 00.00000\n"},
      {45.20960219166667, -93.5, 3, "45.2096022,-93.5000000\n"},
      {45.20960219166667, -93.5, 200, "451234.56789,-933000.00000\n"},
      {45.999999999, -5.25, 1, "46.000000000,-05.150000000\n"},
      {-0.00000000001, -0.25, 0, "000000.00000,-001500.00000\n"},
  };
  for (const auto& c : cases) {
    point.OutNorthLat = c.latitude;
    point.OutEastLon = c.longitude;
    EXPECT_EQ(written({.fieldCodes = " 0~ 1~", .latLongFormat = c.form}, point, 103), c.line);
  }
}

TEST(DelimitedWriter, HeadsTheFileWhenAsked) {
  const struct {
    const char* header;
    bool include;
    const char* file;
  } cases[] = {
      {"Number,", true, "Number\n17\n"}, {"Number", true, "Numbe\n17\n"}, {",", true, "\n17\n"}, {"", true, "17\n"},
      {"Number,", false, "17\n"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(written({.fieldCodes = " 3~", .headerLine = c.header, .includeHeader = c.include}, samplePoint()),
              c.file);
  }
}

TEST(WayPointsPlusWriter, WritesLinesThatItsSourceLayoutReads) {
  run::RunSettings settings;
  prepareWayPointsPlusTarget(settings);
  PointRecord point = samplePoint();
  point.pointNumber = "7";
  point.description = "NAME";
  point.OutNorthLat = 45.20960219166667;
  point.OutEastLon = -93.20960219166667;
  EXPECT_EQ(written(settings.targetDelimited, point, 0, makeWayPointsPlusWriter),
            "Datum,North America 1983,GRS 80,0,-1.6E-7,0,0,0\n"
            "WP,DMS,7,45.123456789,-93.123456789,,,NAME\n");
}

}  // namespace
}  // namespace tovak::formats
