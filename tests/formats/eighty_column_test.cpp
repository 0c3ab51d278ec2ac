#include "formats/survey/eighty_column_reader.h"
#include "formats/survey/eighty_column_writer.h"
#include "support/format_files.h"

namespace tovak::formats::survey {
namespace {

using namespace tests;
using run::PointRecord;

const std::string kOrdinary = "0104DEPOT YARD                    2523547.767907553.363BM 987.15  MONQRDT23CXXXX";
const std::string kAlignment = "0002TR 12   0+412.350 R 350.000    769561.004276777.865PC               L12 12  ";

ReadFile reading(std::string_view bytes, Show show) {
  return readFile(makeEightyColumnReader, bytes, {}, show);
}

run::Message fileMessage(const char* text) {
  return {text, "Invalid UCC file", run::Icon::Exclamation};
}

TEST(EightyColumnReader, PutsEachFieldInItsPlace) {
  EXPECT_EQ(reading(kOrdinary + "beyond\n", filledFields).points,
            "E=2523547.767 N=907553.363 OD=XXXX OW=QRDT PH=MON Z=987.15 code=BM decimals=1 "
            "description=DEPOT YARD                     line=1 number=0104");
  EXPECT_EQ(reading("$\n" + kAlignment, filledFields).points,
            "E=769561.004 N=276777.865 OD=12   OW=L12  PH=PC   RA=R 350.000 alignment=1 "
            "description=TR 12   0+412.350 R 350.000    line=2 number=0002 station=0+412.350");
}

TEST(EightyColumnReader, ReadsNumbersCodesAndMarks) {
  const Case eastings[] = {{" 12 34 .5 6", "1234.56"}, {"   12.5ft 9", "12.5"}, {"   unknown ", "0"}};
  const Show easting = [](const PointRecord& p) { return row(p.InEastLon); };
  expectFields(makeEightyColumnReader, 0, "", kOrdinary, 35, easting, eastings);
  const Case northings[] = {{"          BM", "0|BM"},
                            {"999999.999A ", "999999.999|A "},
                            {"1000000.  A1", "1000000|1"},
                            {"1234567.891C", "1234567.891|C"}};
  const Show northing = [](const PointRecord& p) { return row(p.InNorthLat, p.code); };
  expectFields(makeEightyColumnReader, 0, "", kOrdinary, 46, northing, northings);
  const Case elevations[] = {{"        ", "0|0|BQR23"},     {"123     ", "123|3|BQR23"},
                             {" 123.4  ", "123.4|2|BQR23"}, {" 812.345", "812.345|0|BQR23"},
                             {"       Z", "0|0|ZQR23"},     {" -12.34A", "-12.34|0|AQR23"},
                             {" 812.34a", "812.34|0|BQR23"}};
  const Show elevation = [](const PointRecord& p) { return row(p.Elevation, p.elevationAccuracy, p.classCode); };
  expectFields(makeEightyColumnReader, 0, "", kOrdinary, 58, elevation, elevations);
  // The station of the first point tells an alignment file.
  const Case stations[] = {{"   1+234.567", "1"}, {"    12+34.56", "1"}, {"   1+23.45  ", "0"}, {"    12+345.67", "0"}};
  const Show alignment = [](const PointRecord& p) { return row(p.alignmentPoint); };
  expectFields(makeEightyColumnReader, 0, "", kOrdinary, 10, alignment, stations);
}

TEST(EightyColumnReader, KeepsTheNumberOverBlankOnesAndPassesOverOtherLines) {
  const Show show = [](const PointRecord& p) { return row(p.sourceLine, p.pointNumber, p.alignmentPoint); };
  const std::string blank = with(kOrdinary, 1, "    ") + "\n";
  const ReadFile file = reading(
      "$Tovak#4$\n\n   \n" + blank + "$\ta tab\n \n" + with(kOrdinary, 1, " 7  ") + "\n" + blank + kOrdinary, show);
  EXPECT_EQ(file.points, "4||0 7| 7  |0 8| 7  |0 9|0104|0");
  EXPECT_EQ(file.counts.comment.count, 2U);
  EXPECT_EQ(reading(kAlignment + "\n" + blank, show).points, "1|0002|1 2||1");
  for (const char* const bytes : {"", "$ only\n\n      \r\n$"}) {
    EXPECT_EQ(reading(bytes, number).message,
              fileMessage("This UCC file does not contain any valid records.  Please correct this."));
  }
}

TEST(EightyColumnReader, EndsAtTheFirstLineWithATab) {
  const ReadFile file = reading(kOrdinary + "\n" + kOrdinary + " \t\n" + kOrdinary, number);
  EXPECT_EQ(file.points, "0104 ended");
  EXPECT_EQ(file.message, fileMessage("This UCC file contains at least one TAB.  Please correct this.\n"
                                      "The output file will be complete to the first line with a TAB."));
  EXPECT_EQ(reading("\t", number).points, "ended");
}

TEST(EightyColumnReader, SurvivesCutAndDamagedLines) {
  for (const std::string& line : {kOrdinary, kAlignment}) {
    expectSameWhenPadded(makeEightyColumnReader, "", line, {});
    expectToSurviveDamage(makeEightyColumnReader, line + "\n" + line + "\n$\n" + line, {});
  }
}

PointRecord pipe(double northing, double easting, double elevation) {
  PointRecord point = pointAt(northing, easting, elevation);
  point.pointNumber = "12";
  point.description = "PIPE";
  point.code = "AB";
  return point;
}

std::string written(const PointRecord& point, int accuracy, bool toMetres = false) {
  run::RunSettings settings = settingsFor(4, false, accuracy);
  settings.target.metres = toMetres;
  return tests::written(makeEightyColumnWriter, point, settings);
}

const std::string kPipe = "0012PIPE                          ";
const std::string kTrailer = "  MONQRDT23CXXXX\n";
const std::string kIndent(55, ' ');

TEST(EightyColumnWriter, PutsFieldsInTheirColumns) {
  const struct {
    double northing, elevation;
    const char* code;
    std::string fields;  ///< from column 35 on
  } cases[] = {
      {150000.4, 812, "AB", " 500000.      150000.AB 812.  " + kTrailer},
      {-150000.4, 0, "AB", " 500000.      -150000.\n" + kIndent + "AB       " + kTrailer},
      {0.2, -3.56, "AB", " 500000.            .AB  -4.  " + kTrailer},
      // The third decimal takes column 65 from the trailer, printed or not.
      {1, 812.345, "AB", " 500000.           1.AB 812.    MONQRDT23CXXXX\n"},
      // Seven digits in front of the point, also when rounding makes them, push the code into column 57, where only one
      // character is not in the elevation's way.
      {999999.4, 12.3, "AB", " 500000.      999999.AB  12.  " + kTrailer},
      {999999.6, 12.3, "A", " 500000.      1000000.A  12.  " + kTrailer},
      {1234567, 12.3, "  ", " 500000.      1234567.   12.  " + kTrailer},
      {1234567, 0, "AB", " 500000.      1234567.AB\n" + kIndent + "         " + kTrailer},
  };
  for (const auto& c : cases) {
    PointRecord point = pipe(c.northing, 500000.5, c.elevation);
    point.code = c.code;
    for (const int accuracy : {3, 4, 5}) EXPECT_EQ(written(point, accuracy), kPipe + c.fields);
  }
}

TEST(EightyColumnWriter, BreaksTheLineInFrontOfAnOccupiedColumn) {
  const struct {
    int accuracy;
    double elevation;
    std::string lines;
  } cases[] = {{0, 812.345, "2500000.125   150000.456\n" + kIndent + "AB 812.345 MONQRDT23CXXXX\n"},
               {0, 812.34, "2500000.125   150000.456\n" + kIndent + "AB 812.34" + kTrailer},
               {1, 812.345, "2500000.12    150000.46\n" + kIndent + "AB 812.34  MONQRDT23CXXXX\n"},
               {2, 0.25, "2500000.1     150000.5\n" + kIndent + "AB    .2 " + kTrailer}};
  for (const auto& c : cases)
    EXPECT_EQ(written(pipe(150000.4565, 2500000.125, c.elevation), c.accuracy), kPipe + c.lines);
  PointRecord point = pipe(1, 1, 12345.67);
  point.pointNumber = "12345";
  point.description = std::string(31, 'x');
  EXPECT_EQ(written(point, 1), "2345" + point.description + "\n" + std::string(40, ' ') + "1.00         1.00\n" +
                                   kIndent + "AB12345.67\n" + std::string(64, ' ') + kTrailer);
}

TEST(EightyColumnWriter, TellsAThirdDecimalFromBinaryNoise) {
  PointRecord point = pipe(1, 1, 0);
  point.trailerGroup = "*";
  const auto third = [&point](double elevation) {
    point.Elevation = elevation;
    return written(point, 3).find('*') == std::string::npos;
  };
  for (const double elevation : {0.0, 1.1, 4.35, -1.15, 12 * 39.37 / 12, 999999.99, 1e300})
    EXPECT_FALSE(third(elevation)) << elevation;
  for (const double elevation : {-812.345, 0.001, 812.34001, 1e-9, 999999.991})
    EXPECT_TRUE(third(elevation)) << elevation;
}

TEST(EightyColumnWriter, WritesAlignmentPointsInTheirOwnLayout) {
  const struct {
    int accuracy;
    double northing, easting;
    const char* coordinates;
  } cases[] = {{1, 276777.865, 769561.004, " 769561.00  276777.86"},
               {3, 276777.865, 2769561.004, "2769561.      276778."},
               // Rather fewer decimals than a broken line.
               {0, 1276777.8651, 2769561.004, "2769561.0041276777.87"},
               {0, -76777.8651, -2769561.004, "-2769561.00-76777.865"}};
  PointRecord point;
  for (const auto& c : cases) {
    point = pipe(c.northing, c.easting, 812.345);
    point.alignmentPoint = true;
    point.description = "TR 12   0+412.350 R 350.000   ";
    point.phField = "POTL";
    point.owField = "L12 ";
    point.odField = "XXXX";
    const std::string fields = point.description + c.coordinates + "POTL             L12 XXXX\n";
    EXPECT_EQ(written(point, c.accuracy), "0012" + fields);
    point.pointNumber.clear();
    EXPECT_EQ(written(point, c.accuracy), "    " + fields);
  }
  // Metric and English alignments name two point types the other way round.
  const Case types[] = {{"PISC", "PISC PICS"}, {"PICS", "PICS PISC"}, {"PICC", "PICC PICC"}};
  expectEach(types, [&point](const std::string& type) {
    point.phField = type;
    return written(point, 0).substr(55, 4) + " " + written(point, 0, true).substr(55, 4);
  });
}

/// The lines of a file that hold points, without the blanks at their ends.
std::string pointLines(const std::string& file) {
  std::string lines;
  std::istringstream in(file);
  for (std::string line; std::getline(in, line);) {
    line.erase(line.find_last_not_of(" \r") + 1);
    if (!line.empty() && line.front() != '$') lines += line + "\n";
  }
  return lines;
}

std::string converted(const std::string& source, int accuracy, std::int16_t target = run::target::Vesko80Column) {
  Conversion run(run::source::Vesko80Column, target);
  run.settings.accuracy = static_cast<text::Accuracy>(accuracy);
  run.settings.allowBlankPointNumbers = true;
  return pointLines(run.of(source));
}

TEST(EightyColumns, ConvertIntoThemselves) {
  const std::string metric = pointLines(sample("vesko80_alignment_metric.txt"));
  EXPECT_EQ(converted(metric, 0), metric);
  // Other lines, but the same points.
  const std::string english = pointLines(sample("vesko80_alignment_english.txt"));
  const std::string again = converted(english, 0);
  EXPECT_NE(again, english);
  EXPECT_EQ(converted(again, 0, run::target::CommaDelimited), converted(english, 0, run::target::CommaDelimited));
  // The sample has wide northings and blank numbers.
  const std::string points = sample("vesko80_points.txt");
  const std::string whole = converted(points, 3);
  EXPECT_NE(whole.find("\n0102BEACON HILL                   3000909.      1262574.B1184.  A MONQRDT23CTOWR\n"),
            std::string::npos);
  EXPECT_NE(whole.find("\n 106FERRY LANDING, PIER           2492200.      1354290.\n"), std::string::npos);
  EXPECT_EQ(converted(whole, 3), whole);
  // With decimals a point takes two lines, and a reader takes them for two points.
  EXPECT_TRUE(converted(converted(points, 0), 0, run::target::CommaDelimited)
                  .starts_with("907553,2523548,DEPOT YARD,0104,3,,,\n0.00,0.00,,0104,987.15,,,\n"));
}

}  // namespace
}  // namespace tovak::formats::survey
