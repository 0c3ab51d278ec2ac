#include "formats/delimited/delimited_reader.h"

#include <gtest/gtest.h>

#include "formats/delimited/built_in_formats.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"

namespace tovak::formats {
namespace {

using run::PointRecord;
using run::ReadState;
using tests::TemporaryFolder;

/// A delimited file that is read point by point.
class Reading {
 public:
  Reading(std::string_view bytes, const run::DelimitedFormat& format, std::int16_t code = 2) {
    settings_.sourceDelimited = format;
    settings_.SourceProjectionCode = code;
    lines_.open(folder_.write("points", bytes));
    reader_ = makeDelimitedReader(
        {.lines = lines_, .settings = settings_, .counts = counts, .person = person_, .message = message_});
  }

  bool next() {
    run::resetPoint(point);
    return reader_->read(point) == ReadState::Point;
  }

  PointRecord point;
  run::RecordCounts counts;

 private:
  TemporaryFolder folder_;
  run::RunSettings settings_;
  text::LineReader lines_;
  tests::ScriptedPerson person_;
  run::Message message_;
  std::unique_ptr<run::PointReader> reader_;
};

run::DelimitedFormat layout(const char* codes, char delimiter = ',') {
  return {.delimiter = delimiter, .fieldCodes = codes};
}

TEST(CleanTextField, TakesWhatStandsInQuotes) {
  const struct {
    const char* text;
    const char* cleaned;
  } cases[] = {{"  BM 12  ", "BM 12"}, {"\" BM \"", " BM "}, {"x\"y\"z", "y"}, {"\"open end ", "open end "},
               {"\"\"", ""},           {"\"", ""},           {"", ""},         {"   ", ""}};
  for (const auto& c : cases) EXPECT_EQ(cleanTextField(c.text), c.cleaned) << c.text;
}

TEST(DelimitedReader, PutsEachFieldInItsPlace) {
  Reading all("1.5,2.5, NAME ,\" N 1\",812.35,-27.1x, 6 ,PHx, OW ,TO,FE,FG,ST,OF,a1,a2,a3,a4,a5,a6,a7,a8,a9,c1,c2,x,y",
              layout(" 0~ 1~ 2~ 3~ 4~ 5~ 6~ 8~ 9~ 10~ 11~ 12~ 13~ 14~ 15~ 16~ 17~ 18~ 19~ 20~ 21~ 22~ 23~ 24~ 24~ 7~"));
  ASSERT_TRUE(all.next());
  const PointRecord& p = all.point;
  EXPECT_EQ(p.InNorthLat, 1.5);
  EXPECT_EQ(p.InEastLon, 2.5);
  EXPECT_EQ(p.Elevation, 812.35);
  EXPECT_EQ(p.elevationDecimals, 1);
  const std::vector<std::string> texts = {p.description, p.pointNumber, p.geoidHeight, p.ellipsoidHeight, p.phField,
                                          p.owField,     p.odField,     p.featureCode, p.figure,          p.station,
                                          p.offset,      p.comment,     p.anythingElse};
  EXPECT_EQ(texts, (std::vector<std::string>{"NAME", " N 1", "-27.1x", " 6 ", "PHx", " OW ", "TO", "FE", "FG", "ST",
                                             "OF", "c1 c2", "x,y"}));
  for (std::size_t i = 0; i < 9; ++i) EXPECT_EQ(p.attributes[i], "a" + std::to_string(i + 1));
  EXPECT_EQ(p.sourceLine, 1U);
}

TEST(DelimitedReader, SplitsLines) {
  const struct {
    const char* line;
    const char* codes;
    char delimiter;
    double northing;
    const char* name;
    const char* number;
    const char* comment;
    const char* rest;
  } cases[] = {
      {"10,20,PT1", " 0~ 1~ 2~", ',', 10, "PT1", "", "", ""},
      {"10,20,PT1", " 0~ 1~ 7~", ',', 10, "", "", "", "PT1"},
      {"10,20,PT1,a,b", " 0~ 1~ 7~ 2~", ',', 10, "", "", "", "PT1,a,b"},
      {"10,20", " 0~ 1~ 7~", ',', 10, "", "", "", ""},
      {"10,20", " 0~ 1~ 2~ 3~ 4~", ',', 10, "", "", "", ""},
      {"10,20,A,B,C,D", " 0~ 1~ 2~", ',', 10, "A", "", "", ""},
      // Separators separate inside quotes too; the name keeps what stands before the first.
      {"100,200,3,\"My point, east\",x", " 0~ 1~ 3~ 2~", ',', 100, "My point", "3", "", ""},
      {"1,2,A; note", " 0~ 1~ 2~ 25~", ',', 1, "A", "", "note", ""},
      {"1,2,A", " 0~ 1~ 2~ 25~", ',', 1, "A", "", "", ""},
      // While a comma is left it separates, and ";" is part of the text.
      {"1,2,A;x,note", " 0~ 1~ 2~ 25~", ',', 1, "A;x", "", "note", ""},
      {"1,2,A;x;y", " 0~ 1~ 2~ 3~ 25~", ',', 1, "A", "x", "y", ""},
      // The switch hangs on the digits 25 anywhere in the list.
      {"1,2,A;B", " 0~ 1~ 2~ 125~", ',', 1, "A", "", "", ""},
      {"1,2,A;B", " 0~ 1~ 2~ 24~", ',', 1, "A;B", "", "", ""},
      {"1;2;A,B", " 0~ 1~ 2~ 25~", ';', 1, "A,B", "", "", ""},
      {"1\t2\t A ", " 0~ 1~ 2~", '\t', 1, "A", "", "", ""},
      // Codes that mean nothing still take their field.
      {"10,20,x,N", " 0~ 1~ 77~ 3~", ',', 10, "", "N", "", ""},
      {"10,20,x,N", " 0~ 1~ word~ 3~ ", ',', 10, "", "N", "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.line << " by" << c.codes);
    Reading reading(c.line, layout(c.codes, c.delimiter));
    ASSERT_TRUE(reading.next());
    EXPECT_EQ(reading.point.InNorthLat, c.northing);
    EXPECT_EQ(reading.point.description, c.name);
    EXPECT_EQ(reading.point.pointNumber, c.number);
    EXPECT_EQ(reading.point.comment, c.comment);
    EXPECT_EQ(reading.point.anythingElse, c.rest);
  }
}

TEST(DelimitedReader, PassesOverAndCountsWhatIsNoPoint) {
  Reading reading(
      "$Tovak#2$ NAD83  (Feet)\n"
      "North,East,Name\n"
      "\n"
      "0,20,zero north\n"
      "10,0.000,zero east\n"
      "no delimiter\n"
      "1,2,first\n"
      "$1,2,comment\n"
      "x1,2,no number\n"
      "3,4,second\n",
      layout(" 0~ 1~ 2~"));
  ASSERT_TRUE(reading.next());
  EXPECT_EQ(reading.point.description, "first");
  EXPECT_EQ(reading.point.sourceLine, 7U);
  ASSERT_TRUE(reading.next());
  EXPECT_EQ(reading.point.description, "second");
  ASSERT_FALSE(reading.next());
  EXPECT_EQ(reading.counts.comment.count, 2U);
  EXPECT_EQ(reading.counts.comment.firstLine, 1U);
  EXPECT_EQ(reading.counts.withoutDelimiter.count, 2U);
  EXPECT_EQ(reading.counts.withoutDelimiter.firstLine, 3U);
  EXPECT_EQ(reading.counts.zeroCoordinate.count, 4U);
  EXPECT_EQ(reading.counts.zeroCoordinate.firstLine, 2U);
}

TEST(DelimitedReader, LeavesNothingOfOnePointInTheNext) {
  Reading reading("1,2,A,5.5,c,rest\n0,2,B,6.25,d,old\n3,4\n", layout(" 0~ 1~ 2~ 4~ 24~ 7~"));
  ASSERT_TRUE(reading.next());
  ASSERT_TRUE(reading.next());
  EXPECT_EQ(reading.point.description, "");
  EXPECT_EQ(reading.point.Elevation, 0.0);
  EXPECT_EQ(reading.point.elevationDecimals, 0);
  EXPECT_EQ(reading.point.comment, "");
  EXPECT_EQ(reading.point.anythingElse, "");
}

TEST(DelimitedReader, TakesThePrecisionFromTheElevationText) {
  const struct {
    const char* elevation;
    double value;
    int decimals;
  } cases[] = {{"123", 123, 3},         {"123.4", 123.4, 2}, {"123.45", 123.45, 1}, {"123.456", 123.456, 0},
               {" 123.4 ft", 123.4, 2}, {"", 0, 0},          {"none", 0, 0}};
  for (const auto& c : cases) {
    Reading reading("1,2," + std::string(c.elevation) + ",x", layout(" 0~ 1~ 4~ 2~"));
    ASSERT_TRUE(reading.next());
    EXPECT_EQ(reading.point.Elevation, c.value);
    EXPECT_EQ(reading.point.elevationDecimals, c.decimals) << c.elevation;
  }
}

TEST(DelimitedReader, IgnoresBlanksInsideAnglesOnly) {
  const std::string line = "45 12 34.56, 93 06 00.5,A";
  Reading angles(line, layout(" 0~ 1~ 2~"), 103);
  ASSERT_TRUE(angles.next());
  EXPECT_EQ(angles.point.InNorthLat, 451234.56);
  EXPECT_EQ(angles.point.InEastLon, 930600.5);

  Reading grid(line, layout(" 0~ 1~ 2~"), 105);
  ASSERT_TRUE(grid.next());
  EXPECT_EQ(grid.point.InNorthLat, 45.0);
}

TEST(DelimitedReader, ReadsTheBuiltInLayouts) {
  run::RunSettings settings;
  prepareWayPointsPlusSource(settings);
  EXPECT_EQ(settings.latLongForm, text::AngleForm::DegreesMinutesSeconds);
  Reading waypoints(
      "Datum,North America 1983,GRS 80,0,-1.6E-7,0,0,0\n"
      "WP,DMS,7,45.123456789,-93.123456789,05/01/2020,12:00:00,NAME\n",
      settings.sourceDelimited, 0);
  ASSERT_TRUE(waypoints.next());
  EXPECT_EQ(waypoints.point.pointNumber, "7");
  EXPECT_EQ(waypoints.point.InNorthLat, 45.123456789);
  EXPECT_EQ(waypoints.point.InEastLon, -93.123456789);
  EXPECT_EQ(waypoints.point.attributes[2] + waypoints.point.attributes[3], "05/01/202012:00:00");
  EXPECT_EQ(waypoints.point.description, "NAME");
  EXPECT_FALSE(waypoints.next());

  prepareMaptechSource(settings);
  EXPECT_EQ(settings.latLongForm, text::AngleForm::DecimalDegrees);
  Reading maptech("45.5, -93.25, \"HILL\", \"12\", \"a note\", ff, 17\n", settings.sourceDelimited, 0);
  ASSERT_TRUE(maptech.next());
  EXPECT_EQ(maptech.point.InEastLon, -93.25);
  EXPECT_EQ(maptech.point.description, "HILL");
  EXPECT_EQ(maptech.point.pointNumber, "12");
  EXPECT_EQ(maptech.point.comment, "a note");
  EXPECT_EQ(maptech.point.anythingElse, " ff, 17");
}

TEST(DelimitedReader, SurvivesAnyBytes) {
  std::string bytes;
  std::uint32_t state = 1;
  for (int i = 0; i < 200000; ++i) {
    state = state * 1664525U + 1013904223U;
    using namespace std::string_view_literals;
    constexpr std::string_view kAlphabet = "0123456789.,;\"- eE~\n\r\t\0\xFF$x"sv;
    bytes += kAlphabet[(state >> 16) % kAlphabet.size()];
  }
  for (const char* codes : {" 0~ 1~ 2~ 25~ 4~", "", " 7~", "~~~", " 25~ 0~ 1~ 24~ 15~ 98~ 99~"}) {
    Reading reading(bytes, layout(codes), 0);
    while (reading.next()) EXPECT_NE(reading.point.InNorthLat, 0.0);
    EXPECT_EQ(recordsRead(reading.counts) > 0, true);
  }
}

}  // namespace
}  // namespace tovak::formats
