#include "formats/delimited/built_in_formats.h"
#include "formats/delimited/delimited_reader.h"
#include "formats/delimited/delimited_writer.h"
#include "support/format_files.h"
#include "support/golden_rows.h"

namespace tovak::formats::delimited {
namespace {

using namespace tests;
using run::DelimitedFormat;
using run::PointRecord;

const Show fields = [](const PointRecord& p) {
  return row(p.InNorthLat, p.InEastLon, p.description, p.pointNumber, p.comment, p.anythingElse);
};

ReadFile reading(std::string_view bytes, const DelimitedFormat& format, std::int16_t code = 2, Show show = fields) {
  run::RunSettings settings = settingsFor(code);
  settings.sourceDelimited = format;
  return readFile(makeDelimitedReader, bytes, settings, show);
}

DelimitedFormat layout(const std::string& codes, char delimiter = ',') {
  return {.delimiter = delimiter, .fieldCodes = codes};
}

TEST(DelimitedReader, PutsEachFieldInItsPlace) {
  EXPECT_EQ(
      reading("1.5,2.5, NAME ,\" N 1\",812.35,-27.1x, 6 ,PHx, OW ,TO,FE,FG,ST,OF,a1,a2,a3,a4,a5,a6,a7,a8,a9,c1,c2,x,y",
              layout(" 0~ 1~ 2~ 3~ 4~ 5~ 6~ 8~ 9~ 10~ 11~ 12~ 13~ 14~ 15~ 16~ 17~ 18~ 19~ 20~ 21~ 22~ 23~ 24~ 24~ 7~"),
              2, filledFields)
          .points,
      "E=2.5 N=1.5 OD=TO OW= OW  PH=PHx Z=812.35 attribute1=a1 attribute2=a2 attribute3=a3 attribute4=a4 "
      "attribute5=a5 attribute6=a6 attribute7=a7 attribute8=a8 attribute9=a9 comment=c1 c2 decimals=1 "
      "description=NAME ellipsoid= 6  feature=FE figure=FG geoid=-27.1x line=1 number= N 1 offset=OF rest=x,y "
      "station=ST");
  const Case texts[] = {{"  BM 12  ", "BM 12"},       {"\" BM \"", " BM "}, {"x\"y\"z", "y"},
                        {"\"open end ", "open end "}, {"\"", ""},           {"   ", ""}};
  expectEach(texts, [](const std::string& text) { return std::string(cleanTextField(text)); });
  const Case elevations[] = {{"123", "123|3"}, {"123.456", "123.456|0"}, {" 123.4 ft", "123.4|2"}, {"none", "0|0"}};
  const Show elevation = [](const PointRecord& p) { return row(p.Elevation, p.elevationAccuracy); };
  expectEach(elevations, [&](const std::string& text) {
    return reading("1,2," + text + ",x", layout(" 0~ 1~ 4~ 2~"), 2, elevation).points;
  });
}

TEST(DelimitedReader, SplitsLines) {
  for (const auto& c : goldenRows("delimited_lines.txt")) EXPECT_EQ(reading(c[0], layout(c[1])).points, c[2]) << c[0];
  EXPECT_EQ(reading("1;2;A,B", layout(" 0~ 1~ 2~ 25~", ';')).points, "1|2|A,B|||");
  // Blanks part degrees, minutes and seconds, and end any other number.
  EXPECT_EQ(reading("45 12 34.56\t 93 06 00.5\t A ", layout(" 0~ 1~ 2~", '\t'), 103).points,
            "45.2096|-93.1001388888889|A|||");
  EXPECT_EQ(reading("45 12 34.56\t 93 06 00.5\t A ", layout(" 0~ 1~ 2~", '\t'), 105).points, "45|93|A|||");
}

TEST(DelimitedReader, PassesOverAndCountsWhatIsNoPoint) {
  const ReadFile file = reading(
      "$Tovak#2$ NAD83  (Feet)\nNorth,East,Name\n\n0,20,zero north,a,b\n10,0.000,zero east\nno "
      "delimiter\n1,2,first,c,d\n"
      "$1,2,comment\nx1,2,no number,e,f\n3,4\n",
      layout(" 0~ 1~ 2~ 24~ 7~"));
  EXPECT_EQ(file.points, "1|2|first||c|d 3|4||||");
  EXPECT_EQ(row(row(file.counts.comment), row(file.counts.withoutDelimiter), row(file.counts.zeroCoordinate)),
            "2|1|2|3|4|2");
  for (const char* codes : {" 0~ 1~ 2~ 25~ 4~", " 25~ 0~ 1~ 24~ 15~ 98~ 7~"}) {
    run::RunSettings settings = settingsFor(0);
    settings.sourceDelimited.fieldCodes = codes;
    expectToSurviveDamage(makeDelimitedReader, "1,2,3.5;\"x\"\n4,5,6,7,8;9\n", settings);
  }
}

TEST(DelimitedReader, ReadsTheBuiltInLayouts) {
  run::RunSettings settings;
  prepareWayPointsPlusSource(settings);
  EXPECT_EQ(
      reading("Datum,North America 1983,GRS 80,0,-1.6E-7,0,0,0\nWP,DMS,7,45.123456789,-93.5,05/01/2020,12:00:00,NAME\n",
              settings.sourceDelimited, 0,
              [](const PointRecord& p) { return row(fields(p), p.attributes[2], p.attributes[3]); })
          .points,
      "45.2096021916667|-93.8333333333333|NAME|7|||05/01/2020|12:00:00");
  prepareMaptechSource(settings);
  EXPECT_EQ(reading("45.5, -93.25, \"HILL\", \"12\", \"a note\", ff, 17\n", settings.sourceDelimited, 0).points,
            "45.8333333333333|-93.4166666666667|HILL|12|a note| ff, 17");
}

std::string written(const DelimitedFormat& format, const PointRecord& point, std::int16_t code = 4) {
  run::RunSettings settings = settingsFor(code);
  settings.targetDelimited = format;
  return tests::written(makeDelimitedWriter, point, settings);
}

TEST(DelimitedWriter, JoinsFieldsByTheLayout) {
  PointRecord point = pointAt(150000.45678, 500000.5);
  point.pointNumber = " 17 ";
  point.description = "IRON PIPE";
  point.geoidHeight = " -27.1";
  point.ellipsoidHeight = "0.000";
  point.comment = "note";
  point.anythingElse = "x,y";
  point.station = " 1+00 ";
  point.attributes = {" a1 ", "a2", " d ", " t ", "a5", "a6", "a7", "a8", "a9"};
  const Case cases[] = {{" 0~ 1~ 4~ 3~", "150000.457,500000.500,,17\n"},
                        {" 3~ 25~ 24~", "17;note,note\n"},
                        {" 25~", "note\n"},
                        {" 5~ 6~ 2~", "-27.100,,IRON PIPE\n"},
                        {" 2~ 7~ 3~", "IRON PIPE,x,y\n"},
                        {" 8~ 13~ 15~ 23~ 60~ 2~", ",1+00,a1,a9,,IRON PIPE\n"},
                        {" 3~ 98~ 99~ 2~", "WP,DMS,d,t,IRON PIPE\n"},
                        {"", "\n"}};
  expectEach(cases, [&point](const std::string& codes) { return written(layout(codes), point); });
  EXPECT_EQ(written(layout(" 3~ 25~ 99~", '\t'), point), "17;note\td\tt\n");
  const Case headers[] = {{"Number,", "Number\n17\n"}, {",", "\n17\n"}, {"", "17\n"}};
  expectEach(headers, [&point](const std::string& header) {
    EXPECT_EQ(written({.fieldCodes = " 3~", .headerLine = header}, point), "17\n");
    return written({.fieldCodes = " 3~", .headerLine = header, .includeHeader = true}, point);
  });
  // Every number has the precision of the elevation.
  point.elevationAccuracy = static_cast<text::Accuracy>(2);
  point.Elevation = 0.04;
  EXPECT_EQ(written(layout(" 0~ 1~ 4~ 5~"), point), "150000.5,500000.5,0.0,-27.1\n");
}

TEST(DelimitedWriter, WritesAnglesInEachForm) {
  PointRecord point = pointAt(45.20960219166667, -5.25);
  point.elevationAccuracy = static_cast<text::Accuracy>(3);
  constexpr const char* kLines[] = {"451234.56789,-051500.00000\n", "45.123456789,-05.150000000\n",
                                    "45 12 34.56789,-05 15 00.00000\n", "45.2096022,-5.2500000\n",
                                    "451234.56789,-051500.00000\n"};
  for (std::uint8_t form = 0; form < std::size(kLines); ++form) {
    EXPECT_EQ(written({.fieldCodes = " 0~ 1~", .latLongFormat = form}, point, 103), kLines[form]);
  }
  point = pointAt(45.999999999, -0.00000000001);
  EXPECT_EQ(written({.fieldCodes = " 0~ 1~", .latLongFormat = 1}, point, 0), "46.000000000,00.000000000\n");
  run::RunSettings settings = settingsFor(0);
  prepareWayPointsPlusTarget(settings);
  EXPECT_EQ(tests::written(makeWayPointsPlusWriter, point, settings),
            "Datum,North America 1983,GRS 80,0,-1.6E-7,0,0,0\nWP,DMS,,46.000000000,00.000000000,,,\n");
}

}  // namespace
}  // namespace tovak::formats::delimited
