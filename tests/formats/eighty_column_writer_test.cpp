#include "formats/survey/eighty_column_writer.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace tovak::formats {
namespace {

run::PointRecord pointAt(double northing, double easting, double elevation) {
  run::PointRecord point;
  run::resetPoint(point);
  point.pointNumber = "12";
  point.description = "PIPE";
  point.code = "AB";
  point.OutNorthLat = northing;
  point.OutEastLon = easting;
  point.Elevation = elevation;
  return point;
}

std::string written(const run::PointRecord& point, int accuracy, bool fromMetres = false, bool toMetres = false) {
  const tests::TemporaryFolder folder;
  run::RunSettings settings;
  settings.accuracy = accuracy;
  settings.source.metres = fromMetres;
  settings.target.metres = toMetres;
  text::LineWriter lines;
  EXPECT_TRUE(lines.open(folder.file("out")));
  const auto writer = makeEightyColumnWriter({.lines = lines, .settings = settings, .targetSystem = {}});
  EXPECT_TRUE(writer->begin() && writer->write(point) && writer->end() && lines.commit());
  return tests::contentsOf(folder.file("out"));
}

using Cells = std::initializer_list<std::pair<std::size_t, const char*>>;

/// A line with texts at their columns.
std::string line(Cells cells, std::string out = {}) {
  for (const auto& [column, text] : cells) {
    out.resize(column - 1, ' ');
    out += text;
  }
  return out + '\n';
}

/// The line that begins the record of `pointAt`.
std::string first(Cells cells) {
  return line(cells, "0012PIPE");
}

constexpr const char* kTrailer = "  MONQRDT23CXXXX";
constexpr const char* kShortTrailer = " MONQRDT23CXXXX";

TEST(EightyColumnWriter, PutsFieldsInTheirColumns) {
  const struct {
    double northing;
    double elevation;
    const char* code;
    std::string lines;
  } cases[] = {
      {150000.4, 812, "AB", first({{36, "500000."}, {49, "150000."}, {56, "AB"}, {59, "812."}, {65, kTrailer}})},
      {-7.5, 0, "AB", first({{36, "500000."}, {53, "-8."}, {56, "AB"}, {58, ""}, {65, kTrailer}})},
      {-150000.4, 0, "AB", first({{36, "500000."}, {49, "-150000."}}) + line({{56, "AB"}, {58, ""}, {65, kTrailer}})},
      {0.2, -3.56, "AB", first({{36, "500000."}, {55, "."}, {56, "AB"}, {60, "-4."}, {65, kTrailer}})},
      // The third decimal takes column 65 from the trailer, printed or not.
      {1, 812.345, "AB", first({{36, "500000."}, {54, "1."}, {56, "AB"}, {59, "812."}, {66, kShortTrailer}})},
      // Seven digits in front of the point, also when rounding makes them, push the code into column 57, where only one
      // character is not in the elevation's way.
      {999999.4, 12.3, "AB", first({{36, "500000."}, {49, "999999."}, {56, "AB"}, {60, "12."}, {65, kTrailer}})},
      {999999.6, 12.3, "A", first({{36, "500000."}, {49, "1000000."}, {57, "A"}, {60, "12."}, {65, kTrailer}})},
      {1234567, 12.3, "  ", first({{36, "500000."}, {49, "1234567."}, {60, "12."}, {65, kTrailer}})},
      {1234567, 0, "AB", first({{36, "500000."}, {49, "1234567."}, {57, "AB"}}) + line({{65, kTrailer}})},
  };
  for (const auto& c : cases) {
    run::PointRecord point = pointAt(c.northing, 500000.5, c.elevation);
    point.code = c.code;
    for (const int accuracy : {3, 4, 5}) EXPECT_EQ(written(point, accuracy), c.lines);
  }
}

TEST(EightyColumnWriter, BreaksTheLineWhereDecimalsOfTheNorthingRunIntoTheCode) {
  const struct {
    int accuracy;
    double elevation;
    std::string first;
    std::string second;
  } cases[] = {
      {0, 812.345, first({{35, "2500000.125"}, {49, "150000.456"}}),
       line({{56, "AB"}, {59, "812.345"}, {66, kShortTrailer}})},
      {0, 812.34, first({{35, "2500000.125"}, {49, "150000.456"}}), line({{56, "AB"}, {59, "812.34"}, {65, kTrailer}})},
      {1, 812.345, first({{35, "2500000.12"}, {49, "150000.46"}}),
       line({{56, "AB"}, {59, "812.34"}, {66, kShortTrailer}})},
      {2, 0.25, first({{35, "2500000.1"}, {49, "150000.5"}}), line({{56, "AB"}, {62, ".2"}, {65, kTrailer}})},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(written(pointAt(150000.4565, 2500000.125, c.elevation), c.accuracy), c.first + c.second);
  }
}

TEST(EightyColumnWriter, TellsAThirdDecimalFromBinaryNoise) {
  const struct {
    double elevation;
    bool third;
  } cases[] = {{0, false},       {1.1, false},  {812.34, false},          {4.35, false},  {12 * 39.37 / 12, false},
               {-1.15, false},   {0.07, false}, {999999.99, false},       {1e300, false}, {812.345, true},
               {-812.345, true}, {0.001, true}, {812.34 + 0.00001, true}, {1e-9, true},   {999999.991, true}};
  for (const auto& c : cases) {
    run::PointRecord point = pointAt(1, 1, c.elevation);
    point.trailerGroup = "*";
    EXPECT_EQ(written(point, 3).find('*') == std::string::npos, c.third) << c.elevation;
  }
}

TEST(EightyColumnWriter, ShiftsWhatFollowsAnOverlongField) {
  run::PointRecord point = pointAt(1, 1, 12345.67);
  point.pointNumber = "12345";
  point.description = std::string(31, 'x');
  EXPECT_EQ(written(point, 1), "2345" + point.description + "\n" + line({{41, "1.00"}, {54, "1.00"}}) +
                                   line({{56, "AB"}, {58, "12345.67"}}) + line({{65, kTrailer}}));
}

TEST(EightyColumnWriter, WritesAlignmentPointsInTheirOwnLayout) {
  const struct {
    int accuracy;
    double northing;
    double easting;
    Cells coordinates;
  } cases[] = {
      {0, 276777.865, 769561.004, {{36, "769561.004"}, {46, "276777.865"}}},
      {1, 276777.865, 769561.004, {{36, "769561.00"}, {47, "276777.86"}}},
      {3, 276777.865, 2769561.004, {{35, "2769561."}, {49, "276778."}}},
      // Rather fewer decimals than a broken line.
      {0, 1276777.8651, 2769561.004, {{35, "2769561.004"}, {46, "1276777.87"}}},
      {0, -76777.8651, -2769561.004, {{35, "-2769561.00"}, {46, "-76777.865"}}},
  };
  for (const auto& c : cases) {
    run::PointRecord point = pointAt(c.northing, c.easting, 812.345);
    point.alignmentPoint = true;
    point.description = "TR 12   0+412.350 R 350.000   ";
    point.phField = "POTL";
    point.owField = "L12 ";
    point.odField = "XXXX";
    std::string front = line(c.coordinates, "0012" + point.description);
    front.pop_back();
    const std::string whole = line({{56, "POTL"}, {73, "L12 "}, {77, "XXXX"}}, front);
    EXPECT_EQ(written(point, c.accuracy), whole);
    point.pointNumber.clear();
    EXPECT_EQ(written(point, c.accuracy), "    " + whole.substr(4));
  }
}

TEST(EightyColumnWriter, ExchangesTwoPointTypesBetweenMetresAndFeet) {
  const struct {
    const char* type;
    const char* exchanged;
  } cases[] = {{"PISC", "PICS"}, {"PICS", "PISC"}, {"PICC", "PICC"}, {"SC  ", "SC  "}};
  run::PointRecord point = pointAt(1, 1, 0);
  point.alignmentPoint = true;
  for (const auto& c : cases) {
    point.phField = c.type;
    for (const bool from : {false, true}) {
      for (const bool to : {false, true}) {
        EXPECT_EQ(written(point, 0, from, to).substr(55, 4), from == to ? c.type : c.exchanged);
      }
    }
  }
}

}  // namespace
}  // namespace tovak::formats
