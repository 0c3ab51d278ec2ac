#include "formats/survey/blue_book_reader.h"
#include "formats/survey/blue_book_writer.h"
#include "support/format_files.h"
#include "text/angle.h"

namespace tovak::formats::survey {
namespace {

using namespace tests;
using run::PointRecord;

constexpr std::int16_t kLatLong = 0;
constexpr std::int16_t kSouth = 4;

//       columns 1     7   11  15                            45         56           69    76
const std::string kGeographic = "000010*80*0001ALDER BRIDGE                  48564901137N095472415930W 91248BQR23\n";
const std::string kGrid =  //                    easting   northing   zone
    "000020*81*0001ALDER BRIDGE                  066849584300762920113220391248 AMN12\n";
//       columns 1     7   11    17     24  28      36       46         57
const std::string kHeights = "000030*86*0001  0912482G12 88NGS    -27100   0885382    LEVELED 2011            \n";

ReadFile reading(std::string_view bytes, Show show, std::int16_t code = kSouth, bool metres = true) {
  return readFile(makeBlueBookReader, bytes, settingsFor(code, metres), show);
}

const Show elevation = [](const PointRecord& p) { return row(p.Elevation, p.elevationAccuracy); };

TEST(BlueBookReader, PutsEachFieldInItsPlace) {
  EXPECT_EQ(reading(kGeographic + kHeights, filledFields, kLatLong).points,
            "E=-95.79004425 N=48.9469476027778 Z=912.482 description=ALDER BRIDGE                   ellipsoid=885.382 "
            "geoid=-27.100 line=1 number=0001 packed=485649.01137|954724.1593");
  EXPECT_EQ(reading(kGrid + with(kHeights, 24, "A"), filledFields).points,
            "E=668495.843 N=762920.113 Z=912.482 class=AMN12 description=ALDER BRIDGE                   "
            "ellipsoid=885.382 geoid=-27.100 line=1 number=0001");
}

TEST(BlueBookReader, TakesANumberByItsColumnsOrNotAtAll) {
  // Of a coordinate seven digits and three decimals. Refused: blanks that could stand for a digit, and what is a number
  // only elsewhere or in part.
  const Case eastings[] = {
      {"0668495843", "668495.843"}, {" 500000   ", "500000"},  {" 5000005  ", "500000.5"}, {"       500", "0.5"},
      {"  -5000500", "-5000.5"},    {"      -500", "-0.5"},    {"+005000500", "5000.5"},   {"500000    ", "stopped"},
      {" 500000 12", "stopped"},    {"        50", "stopped"}, {"-   500500", "stopped"},  {"          ", "stopped"},
      {"500000.123", "stopped"},    {"      51E2", "stopped"}, {"0500000-50", "stopped"},  {"\t500000123", "stopped"}};
  const Show easting = [](const PointRecord& p) { return row(p.InEastLon); };
  expectFields(makeBlueBookReader, kSouth, "", kGrid, 45, easting, eastings);
  // In seconds, within ten minutes of the equator, too, where the number could be read as degrees in front of a point.
  const Case latitudes[] = {{"451203     ", "162723"}, {" 5120350000", "18723.5"}, {"00004512345", "45.12345"},
                            {"00095950000", "599.5"},  {"00100000000", "600"},     {"45 12 03   ", "stopped"},
                            {"4512       ", "stopped"}};
  const Show seconds = [](const PointRecord& p) { return row(std::round(p.InNorthLat * 3.6e9) / 1e6); };
  expectFields(makeBlueBookReader, kLatLong, "", kGeographic, 45, seconds, latitudes);
}

TEST(BlueBookReader, TakesHeightsWithThePrecisionTheyAreWrittenIn) {
  const Case elevations[] = {{"081235", "812.35|1"}, {"24510 ", "2451|2"}, {"-271  ", "-271|3"},
                             {" -271 ", "-27.1|2"},  {"   -50", "-0.5|1"}, {"      ", "0|0"},
                             {"812   ", "stopped"},  {"812.35", "stopped"}};
  expectFields(makeBlueBookReader, kSouth, "", kGrid, 70, elevation, elevations);
  // Of the height record; blanks there leave the one of the position record.
  const Case heights[] = {{" -2710 ", "-27.1|1"},
                          {"-271   ", "-271|3"},
                          {"   -050", "-0.05|0"},
                          {"-27    ", "stopped"},
                          {"       ", "9124.8|2"}};
  expectFields(makeBlueBookReader, kSouth, kGrid, kHeights, 17, elevation, heights);
  const Case others[] = {{"  -271 ", "-2.710"}, {"       ", "0.000"}, {"  NONE ", "stopped"}};
  const Show geoid = [](const PointRecord& p) { return p.geoidHeight; };
  const Show ellipsoid = [](const PointRecord& p) { return p.ellipsoidHeight; };
  expectFields(makeBlueBookReader, kSouth, kGrid, kHeights, 36, geoid, others);
  expectFields(makeBlueBookReader, kSouth, kGrid, kHeights, 46, ellipsoid, others);
  // The file's metres in the side's feet.
  const Show feet = [](const PointRecord& p) { return row(std::round(p.Elevation * 1e4), p.geoidHeight); };
  EXPECT_EQ(reading(kGrid + kHeights, feet, kSouth, false).points, "29937014|-88.911");
}

TEST(BlueBookReader, FillsBlankFields) {
  const Case classCodes[] = {
      {"     ", "BQR23"}, {" MN12", "BMN12"}, {"A  12", "AQR12"}, {"AMN  ", "AMN23"}, {"AM 1 ", "AM 1 "}};
  const Show classCode = [](const PointRecord& p) { return p.classCode; };
  expectFields(makeBlueBookReader, kSouth, "", kGrid, 76, classCode, classCodes);
  const std::string blank = with(kGrid, 11, "    ");
  run::RunSettings settings = settingsFor(kSouth);
  settings.NextPointNumber = 40;
  settings.PointNumberIncrement = 5;
  for (const bool allowBlank : {false, true}) {
    settings.allowBlankPointNumbers = allowBlank;
    EXPECT_EQ(readFile(makeBlueBookReader, blank + kGrid + with(kGrid, 11, "  7 ") + blank, settings, number).points,
              "40 0001   7  45");
  }
}

TEST(BlueBookReader, GivesAHeightRecordToTheStationInFrontOfIt) {
  const std::string otherHeights = with(kHeights, 17, "0111000");
  const Show show = [](const PointRecord& p) { return row(p.sourceLine, p.pointNumber, p.Elevation, p.geoidHeight); };
  const ReadFile file =
      reading("$Tovak#4$ NAD83  (Meters)\n" + kHeights + "\n" + kGrid +         // lines 1 to 4
                  "000025*82*0001\n" + kGeographic + kHeights + otherHeights +  // the first heights count
                  with(with(kGrid, 11, "0002"), 70, "      ") + with(kGrid, 11, "0003") + with(otherHeights, 29, "9"),
              show);
  EXPECT_EQ(file.points, "4|0001|912.482|-27.100 9|0002|0| 10|0003|111|-27.100");
  EXPECT_EQ(row(row(file.counts.comment), row(file.counts.noPoint)), "1|1|5|2");
}

TEST(BlueBookReader, RefusesFaultyFilesAndRecords) {
  const Case useless[] = {
      {"", ""}, {kHeights, ""}, {kGeographic, ""}, {with(kGrid, 7, " *81*"), ""}, {"000010*81", ""}};
  const std::string none = "This NGS file does not contain any valid records.  Please correct this.";
  expectEach(useless, [&](const std::string& bytes) {
    const ReadFile file = reading(bytes, number);
    EXPECT_EQ(file.message, (run::Message{none, "Invalid NGS file", run::Icon::Exclamation}));
    return file.points;
  });
  EXPECT_EQ(reading(kGrid, number, 103).message.text, none);
  const Case faulty[] = {{kGrid + with(kGrid, 55, "x") + kGrid, "Invalid *81* Record Found"},
                         {kGrid + kGrid + with(kHeights, 36, "x") + kGrid, "Invalid *86* Record Found"},
                         {kGeographic + with(kGeographic, 57, "W") + kGeographic, "Invalid *80* Record Found"}};
  expectEach(faulty, [](const std::string& bytes) {
    const ReadFile file = reading(bytes, number, bytes.substr(6, 4) == "*80*" ? kLatLong : kSouth);
    EXPECT_EQ(file.points, "0001 stopped");
    EXPECT_EQ(file.message, (run::Message{file.message.text, "Blue Book File Error", run::Icon::Exclamation}));
    return file.message.text;
  });
}

TEST(BlueBookReader, SurvivesCutAndDamagedRecords) {
  expectSameWhenPadded(makeBlueBookReader, "", kGeographic.substr(0, 80), settingsFor(kLatLong));
  expectSameWhenPadded(makeBlueBookReader, kGrid, kHeights.substr(0, 80), settingsFor(kSouth));
  expectToSurviveDamage(makeBlueBookReader, kGrid + kHeights + kGrid + kGrid, settingsFor(kSouth));
  // The station in front of a line that is too long is given.
  EXPECT_EQ(reading(kGrid + std::string(text::LineReader::kMaxLineLength + 1, 'x') + "\n" + kGrid, number).points,
            "0001");
}

TEST(BlueBookWriter, WritesPositionsInTheirColumns) {
  const struct {
    double northing, easting;
    std::int16_t code;
    int accuracy;
    const char* fields;  // columns 45 to 69
  } cases[] = {{762920.1128, 668495.843, 4, 0, " 762920113  6684958432203"},
               {762920.1128, 668495.843, 3, 1, " 76292011   66849584 2202"},
               {762920.1128, 668495.843, 2, 2, " 7629201    6684958  2201"},
               {762920.1128, 668495.843, 105, 5, " 762900     668500   2203"},
               {5425310.2654, 295723.4839, 1, 0, "5425310265  2957234840015"},
               {-0.5, 0.25, 4, 0, "     -0500       02502203"},
               {48.946947602, -95.790044250, 0, 0, "48564901137N095472415930W"},
               {-0.5, 0, 103, 5, "00300000000N000000000000W"},
               // Rounds up into the degrees, not to 60 seconds. The hundreds of the degrees are not written.
               {44.9999999999, -145.5, 0, 0, "45000000000N045300000000W"}};
  for (const auto& c : cases) {
    PointRecord point = pointAt(c.northing, c.easting);
    point.pointNumber = "1";
    point.description = "ALDER BRIDGE";
    const std::string front = c.fields[11] == 'N' ? "000010*80*" : "000010*81*";
    EXPECT_EQ(written(makeBlueBookWriter, point, settingsFor(c.code, true, c.accuracy)),
              front + "0001ALDER BRIDGE                  " + c.fields + "      BQR23\n");
  }
}

TEST(BlueBookWriter, WritesElevationsInMetres) {
  const struct {
    double elevation;
    int decimals;
    bool metres;
    const char* field;
  } cases[] = {{812.345, 0, true, " 81234"}, {812.355, 0, true, " 81236"}, {812.35, 2, true, " 8124 "},
               {-0.5, 1, true, "  -050"},    {-0.0, 1, true, "      "},    {0.004, 1, true, "   000"},
               {39.37, 1, false, "  1200"},  {3937, 3, false, "1200  "}};
  for (const auto& c : cases) {
    PointRecord point = pointAt(45, -93, c.elevation);
    point.elevationAccuracy = static_cast<text::Accuracy>(c.decimals);
    EXPECT_EQ(written(makeBlueBookWriter, point, settingsFor(kLatLong, c.metres)).substr(69, 6), c.field);
  }
}

TEST(BlueBook, HoldsGridCoordinatesInMetresWhateverTheUnit) {
  constexpr double kFeet = 39.37 / 12;
  const PointRecord point = pointAt(5038618.077 * kFeet, 460936.608 * kFeet);
  EXPECT_EQ(written(makeBlueBookWriter, point, settingsFor(1, false)).substr(44, 21), "5038618077  460936608");
  const Show both = [](const PointRecord& p) { return row(std::round(p.InNorthLat), std::round(p.InEastLon)); };
  EXPECT_EQ(readFile(makeBlueBookReader, kGrid, settingsFor(1, false), both).points,
            row(std::round(762920.113 * kFeet), std::round(668495.843 * kFeet)));
}

TEST(BlueBookWriter, KeepsEveryTextInItsColumns) {
  const run::RunSettings settings = settingsFor(kSouth, true);
  PointRecord point = pointAt(1, 2);
  const Case names[] = {{"12345", "2345BM                            "}, {"", "000 BM                            "}};
  point.description = "BM";
  expectEach(names, [&](const std::string& given) {
    point.pointNumber = given;
    return written(makeBlueBookWriter, point, settings).substr(10, 34);
  });
  // Records are counted by tens in six digits.
  const std::size_t length = written(makeBlueBookWriter, point, settings).size();
  const std::string lines = written(makeBlueBookWriter, point, settings, 100001);
  EXPECT_EQ(lines.substr(99998 * length, 7) + lines.substr(99999 * length, 7) + lines.substr(100000 * length, 7),
            "999990*000000*000010*");
  // A field that is too long ends the line; a name is cut.
  point = pointAt(16348260.123, 1640000.5, -1234.5);
  point.description = "A NAME OF MORE THAN THIRTY CHARACTERS";
  EXPECT_EQ(written(makeBlueBookWriter, point, settings), "000010*81*000 A NAME OF MORE THAN THIRTY CHA16348260123\n" +
                                                              std::string(54, ' ') + " 16400005002203-123450\n" +
                                                              std::string(75, ' ') + "BQR23\n");
}

TEST(BlueBook, ConvertsIntoItself) {
  const std::string geographic = kGeographic +
                                 "000020*80*0002A NAME THAT FILLS ALL COLUMNS 45331457055N092315290520W  -50 AMN12\n"
                                 "000030*80*X003                              44000000000N090000000001W      BQR23\n";
  Conversion angles(run::source::BlueBook, run::target::BlueBook, kLatLong);
  angles.settings.latLongForm = text::AngleForm::DecimalDegrees;  // the layout's own form counts
  EXPECT_EQ(angles.of(geographic), geographic);
  EXPECT_EQ(angles.of(with(kGeographic, 47, "60")), "");
  EXPECT_EQ(angles.result.counts.refusedAngle.count, 1U);
  // Northing and easting change places with every round trip.
  Conversion grid(run::source::BlueBook, run::target::BlueBook);
  grid.settings.source.metres = grid.settings.target.metres = true;
  const std::string northingFirst = with(kGrid, 1, "000010").replace(44, 25, " 762920113  6684958432203");
  EXPECT_EQ(grid.of(kGrid), northingFirst);
  EXPECT_EQ(grid.of(northingFirst),
            northingFirst.substr(0, 44) + " 668495843  7629201132203" + northingFirst.substr(69));
}

}  // namespace
}  // namespace tovak::formats::survey
