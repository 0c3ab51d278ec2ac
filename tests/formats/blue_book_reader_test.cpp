#include "formats/survey/blue_book_reader.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "support/scripted_person.h"
#include "support/temporary_folder.h"
#include "text/angle.h"

namespace tovak::formats {
namespace {

using run::PointRecord;
using run::ReadState;

constexpr std::int16_t kLatLong = 0;
constexpr std::int16_t kSouth = 4;

//       columns 1     7   11  15                            45         56           69    76
const std::string kGeographic = "000010*80*0001ALDER BRIDGE                  48564901137N095472415930W 91248BQR23";
const std::string kGrid =  //                    easting   northing   zone
    "000020*81*0001ALDER BRIDGE                  066849584300762920113220391248 AMN12";
//       columns 1     7   11    17     24  28      36       46         57
const std::string kHeights = "000030*86*0001  0912482G12 88NGS    -27100   0885382    LEVELED 2011            ";

/// A record with other characters from a column on.
std::string with(std::string record, std::size_t column, std::string_view characters) {
  return record.replace(column - 1, characters.size(), characters);
}

/// A file that is read point by point.
class Reading {
 public:
  explicit Reading(std::string_view bytes, std::int16_t code = kSouth, bool metres = true) {
    settings.SourceProjectionCode = code;
    settings.source.metres = metres;
    lines_.open(folder_.write("points", bytes));
    reader_ = makeBlueBookReader(
        {.lines = lines_, .settings = settings, .counts = counts, .person = person_, .message = message});
    checked = reader_->check();
  }

  ReadState next() {
    run::resetPoint(point);
    return reader_->read(point);
  }

  run::RunSettings settings;
  run::RecordCounts counts;
  run::Message message;
  bool checked = false;
  PointRecord point;

 private:
  tests::TemporaryFolder folder_;
  text::LineReader lines_;
  tests::ScriptedPerson person_;
  std::unique_ptr<run::PointReader> reader_;
};

TEST(BlueBookReader, PutsEachFieldInItsPlace) {
  Reading geographic(kGeographic + "\n" + kHeights + "\n", kLatLong);
  ASSERT_TRUE(geographic.checked);
  ASSERT_EQ(geographic.next(), ReadState::Point);
  const PointRecord& p = geographic.point;
  EXPECT_EQ(p.pointNumber, "0001");
  EXPECT_EQ(p.description, "ALDER BRIDGE                  ");
  EXPECT_EQ(p.InNorthLat, 485649.01137);
  EXPECT_EQ(p.InEastLon, 954724.15930);
  EXPECT_EQ(p.reportNorthing, "485649.01");
  EXPECT_EQ(p.reportEasting, "954724.16");
  EXPECT_EQ(p.Elevation, 912.482);
  EXPECT_EQ(p.elevationDecimals, 0);
  EXPECT_EQ(p.geoidHeight, "-27.100");
  EXPECT_EQ(p.ellipsoidHeight, "885.382");
  EXPECT_EQ(p.heightRemark, "LEVELED 2011");
  EXPECT_EQ(p.classCode, "BQR23");
  EXPECT_TRUE(p.verticalDatum88);
  EXPECT_FALSE(p.oblique);
  EXPECT_EQ(geographic.next(), ReadState::End);

  Reading grid(kGrid);
  ASSERT_EQ(grid.next(), ReadState::Point);
  EXPECT_EQ(grid.point.InEastLon, 668495.843);
  EXPECT_EQ(grid.point.InNorthLat, 762920.113);
  EXPECT_EQ(grid.point.reportNorthing, "");
  EXPECT_EQ(grid.point.Elevation, 9124.8);
  EXPECT_EQ(grid.point.elevationDecimals, 2);
  EXPECT_EQ(grid.point.classCode, "AMN12");
  EXPECT_EQ(grid.point.geoidHeight, "");
}

constexpr double kRefused = std::numeric_limits<double>::quiet_NaN();

/// The value of a field, and what becomes of a point that holds it.
void expectValue(Reading& reading, double value, const double& field) {
  if (std::isnan(value)) {
    EXPECT_EQ(reading.next(), ReadState::Stopped);
  } else {
    ASSERT_EQ(reading.next(), ReadState::Point);
    EXPECT_EQ(field, value);
  }
}

TEST(BlueBookReader, TakesACoordinateByItsColumnsOrNotAtAll) {
  // Seven digits and three decimals. Refused: blanks that could stand for a digit, and what is a number only elsewhere
  // or in part.
  const struct {
    const char* easting;
    double value;
  } cases[] = {
      {"0668495843", 668495.843}, {" 668495843", 668495.843}, {" 500000   ", 500000},   {" 5000005  ", 500000.5},
      {"  500000  ", 50000},      {"       500", 0.5},        {"0000000000", 0},        {"-005000500", -5000.5},
      {"  -5000500", -5000.5},    {"     -0500", -0.5},       {"      -500", -0.5},     {"+005000500", 5000.5},
      {"500000    ", kRefused},   {" 500000 12", kRefused},   {"        50", kRefused}, {" 5 0000000", kRefused},
      {"-   500500", kRefused},   {"      -   ", kRefused},   {"          ", kRefused}, {"500000.123", kRefused},
      {"500.123   ", kRefused},   {"00005001e3", kRefused},   {"      51E2", kRefused}, {"0500000-50", kRefused},
      {"   nan    ", kRefused},   {" 50000O123", kRefused},   {"\t500000123", kRefused}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.easting);
    Reading reading(with(kGrid, 45, c.easting));
    expectValue(reading, c.value, reading.point.InEastLon);
  }
}

TEST(BlueBookReader, TakesAPackedAngleByItsColumns) {
  // Within ten minutes of the equator, too, where the number could be read as degrees in front of a point.
  const struct {
    const char* latitude;
    double degrees;
  } cases[] = {{"45120300000", 45 + 12 / 60.0 + 3 / 3600.0},
               {"451203     ", 45 + 12 / 60.0 + 3 / 3600.0},
               {" 5120350000", 5 + 12 / 60.0 + 3.5 / 3600.0},
               {"00004512345", 45.12345 / 3600},
               {"00095950000", 9 / 60.0 + 59.5 / 3600},
               {"    4500000", 45 / 3600.0},
               {"00100000000", 10 / 60.0},
               {"45 12 03   ", kRefused},
               {"45         ", kRefused},
               {"4512       ", kRefused},
               {"           ", kRefused}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.latitude);
    Reading reading(with(kGeographic, 45, c.latitude), kLatLong);
    ASSERT_EQ(reading.next(), std::isnan(c.degrees) ? ReadState::Stopped : ReadState::Point);
    if (std::isnan(c.degrees)) continue;
    const auto degrees = text::interpretAngle(reading.point.InNorthLat, text::AngleForm::DegreesMinutesSeconds);
    EXPECT_NEAR(degrees.value_or(-1), c.degrees, 1e-12);
  }
}

TEST(BlueBookReader, TakesElevationsWithThePrecisionTheyAreWrittenIn) {
  // Six characters: of a position record. Seven: of a height record; blanks there leave the former.
  const struct {
    std::string_view field;
    double value;
    int decimals;
  } cases[] = {{"081235", 812.35, 1},    {"24510 ", 2451, 2},     {" 812  ", 812, 3},       {"-271  ", -271, 3},
               {" -271 ", -27.1, 2},     {"  -050", -0.5, 1},     {"   -50", -0.5, 1},      {"    50", 0.5, 1},
               {"000000", 0, 1},         {"      ", 0, 0},        {"812   ", kRefused, 0},  {"     5", kRefused, 0},
               {"812 35", kRefused, 0},  {"812.35", kRefused, 0}, {"  N/A ", kRefused, 0},  {"12X450", kRefused, 0},
               {"0912482", 912.482, 0},  {" -27100", -27.1, 0},   {" -2710 ", -27.1, 1},    {" -271  ", -27.1, 2},
               {"-271   ", -271, 3},     {"   -050", -0.05, 0},   {"-27    ", kRefused, 0}, {"27 1000", kRefused, 0},
               {"  .812 ", kRefused, 0}, {"       ", 912.48, 1}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.field);
    const bool ofPosition = c.field.size() == 6;
    Reading reading(ofPosition ? with(kGrid, 70, c.field)
                               : with(kGrid, 70, " 91248") + "\n" + with(kHeights, 17, c.field));
    expectValue(reading, c.value, reading.point.Elevation);
    if (std::isnan(c.value)) continue;
    EXPECT_EQ(reading.point.elevationDecimals, c.decimals);
  }
}

TEST(BlueBookReader, TakesGeoidAndEllipsoidHeights) {
  const struct {
    const char* field;
    const char* height;  // null: refused
  } cases[] = {{" -27100", "-27.100"}, {"  -271 ", "-2.710"}, {" 271   ", "271.000"},
               {"       ", "0.000"},   {"-0     ", nullptr},  {"  NONE ", nullptr}};
  for (const auto& c : cases) {
    for (const bool geoid : {true, false}) {
      SCOPED_TRACE(testing::Message() << c.field << (geoid ? " geoid" : " ellipsoid"));
      Reading reading(kGrid + "\n" + with(kHeights, geoid ? 36 : 46, c.field));
      ASSERT_EQ(reading.next(), c.height == nullptr ? ReadState::Stopped : ReadState::Point);
      if (c.height == nullptr) continue;
      EXPECT_EQ(geoid ? reading.point.geoidHeight : reading.point.ellipsoidHeight, c.height);
    }
  }
}

TEST(BlueBookReader, TakesRemarksOfTheHeightRecord) {
  Reading reading(kGrid + "\n" + with(with(kHeights, 24, "A"), 57, "  OBLIQUE 2       "));
  ASSERT_EQ(reading.next(), ReadState::Point);
  EXPECT_EQ(reading.point.heightRemark, "OBLIQUE 2");
  EXPECT_TRUE(reading.point.oblique);
  EXPECT_FALSE(reading.point.verticalDatum88);
  Reading older(kGrid + "\n" + with(kHeights, 28, "29"));
  ASSERT_EQ(older.next(), ReadState::Point);
  EXPECT_FALSE(older.point.verticalDatum88);
}

TEST(BlueBookReader, ScalesMetresOfTheFileToTheSidesFeet) {
  Reading reading(kGeographic + "\n" + with(kHeights, 17, "       ") + "\n" + kGeographic + "\n" + kHeights, kLatLong,
                  false);
  ASSERT_EQ(reading.next(), ReadState::Point);
  EXPECT_NEAR(reading.point.Elevation, 912.48 * 39.37 / 12, 1e-9);
  EXPECT_EQ(reading.point.elevationDecimals, 1);
  EXPECT_EQ(reading.point.geoidHeight, "-88.911");
  ASSERT_EQ(reading.next(), ReadState::Point);
  EXPECT_NEAR(reading.point.Elevation, 912.482 * 39.37 / 12, 1e-9);
}

TEST(BlueBookReader, FillsBlankPartsOfTheClassCode) {
  const struct {
    const char* columns;
    const char* classCode;
  } cases[] = {{"AMN12", "AMN12"}, {"     ", "BQR23"}, {" MN12", "BMN12"}, {"A  12", "AQR12"},
               {"AMN  ", "AMN23"}, {"AM 1 ", "AM 1 "}, {"A N 2", "A N 2"}};
  for (const auto& c : cases) {
    Reading reading(with(kGrid, 76, c.columns));
    ASSERT_EQ(reading.next(), ReadState::Point);
    EXPECT_EQ(reading.point.classCode, c.classCode);
  }
}

TEST(BlueBookReader, NumbersStationsWithoutANumber) {
  const std::string blank = with(kGrid, 11, "    ");
  for (const bool allowBlank : {false, true}) {
    Reading reading(blank + "\n" + kGrid + "\n" + with(kGrid, 11, "  7 ") + "\n" + blank + "\n");
    reading.settings.allowBlankPointNumbers = allowBlank;
    reading.settings.NextPointNumber = 40;
    reading.settings.PointNumberIncrement = 5;
    for (const char* const number : {"40", "0001", "  7 ", "45"}) {
      ASSERT_EQ(reading.next(), ReadState::Point);
      EXPECT_EQ(reading.point.pointNumber, number);
    }
    EXPECT_EQ(reading.settings.NextPointNumber, 50);
  }
}

TEST(BlueBookReader, GivesAHeightRecordToTheStationInFrontOfIt) {
  const std::string otherHeights = with(kHeights, 17, "0111000");
  Reading reading("$Tovak#4$ NAD83  (Meters)\n" +                        // 1
                  kHeights + "\n" +                                      // 2, of no station
                  "\n" +                                                 // 3
                  with(kGrid, 15, "FIRST") + "\n" +                      // 4
                  "000025*82*0001\n" + kGeographic + "\n" +              // 5, 6
                  kHeights + "\n" + otherHeights + "\n" +                // 7, 8, of which the first counts
                  with(with(kGrid, 15, "BARE "), 70, "      ") + "\n" +  // 9
                  with(kGrid, 15, "LAST ") + "\r\n" +                    // 10
                  otherHeights);                                         // 11
  const struct {
    const char* name;
    double elevation;
    const char* geoidHeight;
    std::uint64_t line;
  } stations[] = {{"FIRST", 912.482, "-27.100", 4}, {"BARE ", 0, "", 9}, {"LAST ", 111, "-27.100", 10}};
  for (const auto& s : stations) {
    SCOPED_TRACE(s.name);
    ASSERT_EQ(reading.next(), ReadState::Point);
    EXPECT_EQ(reading.point.description.substr(0, 5), s.name);
    EXPECT_EQ(reading.point.Elevation, s.elevation);
    EXPECT_EQ(reading.point.geoidHeight, s.geoidHeight);
    EXPECT_EQ(reading.point.verticalDatum88, *s.geoidHeight != '\0');
    EXPECT_EQ(reading.point.sourceLine, s.line);
  }
  EXPECT_EQ(reading.next(), ReadState::End);
  EXPECT_EQ(reading.next(), ReadState::End);
  EXPECT_EQ(reading.counts.comment.count, 1U);
  EXPECT_EQ(reading.counts.noPoint.count, 5U);
  EXPECT_EQ(reading.counts.noPoint.firstLine, 2U);
}

TEST(BlueBookReader, RefusesAFileWithoutTheRecordsOfItsProjection) {
  const struct {
    std::string bytes;
    std::int16_t code;
    bool useful;
  } cases[] = {
      {"", kSouth, false},          {kHeights + "\n" + kHeights, kSouth, false},
      {kGrid, kLatLong, false},     {kGrid, 103, false},
      {kGeographic, kSouth, false}, {with(kGrid, 7, " *81*"), kSouth, false},
      {"000010*81", kSouth, false}, {kGeographic, 103, true},
      {kGrid, 104, true},           {kHeights + "\n\n" + kGrid, 266, true},
  };
  const run::Message expected = {"This NGS file does not contain any valid records.  Please correct this.",
                                 "Invalid NGS file", run::Icon::Exclamation};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bytes);
    Reading reading(c.bytes, c.code);
    EXPECT_EQ(reading.checked, c.useful);
    EXPECT_EQ(reading.message, c.useful ? run::Message{} : expected);
  }
}

TEST(BlueBookReader, StopsAtTheFirstFaultyRecord) {
  const struct {
    std::string bytes;
    std::int16_t code;
    const char* text;
  } cases[] = {
      {kGrid + "\n" + with(kGrid, 55, "x") + "\n" + kGrid, kSouth, "Invalid *81* Record Found"},
      {kGeographic + "\n" + with(kGeographic, 57, "W") + "\n" + kGeographic, kLatLong, "Invalid *80* Record Found"},
      {kGrid + "\n" + kGrid + "\n" + with(kHeights, 36, "x") + "\n" + kGrid, kSouth, "Invalid *86* Record Found"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    Reading reading(c.bytes, c.code);
    EXPECT_EQ(reading.next(), ReadState::Point);
    EXPECT_EQ(reading.next(), ReadState::Stopped);
    EXPECT_EQ(reading.message, (run::Message{c.text, "Blue Book File Error", run::Icon::Exclamation}));
  }
}

TEST(BlueBookReader, ReadsACutRecordAsIfPaddedWithBlanks) {
  const struct {
    const std::string& record;
    std::int16_t code;
    std::string before;
  } cases[] = {{kGeographic, kLatLong, ""}, {kGrid, kSouth, ""}, {kHeights, kSouth, kGrid + "\n"}};
  for (const auto& c : cases) {
    for (std::size_t length = 10; length <= c.record.size(); ++length) {
      SCOPED_TRACE(c.record.substr(0, length));
      const std::string cut = c.before + c.record.substr(0, length);
      Reading reading(cut, c.code);
      Reading padded(cut + std::string(80 - length, ' ') + "OBLIQUE beyond the record", c.code);
      ASSERT_EQ(reading.next(), padded.next());
      const PointRecord& p = reading.point;
      const PointRecord& q = padded.point;
      EXPECT_EQ(p.pointNumber + p.description + p.classCode, q.pointNumber + q.description + q.classCode);
      EXPECT_EQ(p.InNorthLat, q.InNorthLat);
      EXPECT_EQ(p.InEastLon, q.InEastLon);
      EXPECT_EQ(p.Elevation, q.Elevation);
      EXPECT_EQ(p.elevationDecimals, q.elevationDecimals);
      EXPECT_EQ(p.geoidHeight + p.ellipsoidHeight + p.heightRemark, q.geoidHeight + q.ellipsoidHeight + q.heightRemark);
      EXPECT_EQ(p.oblique, q.oblique);
    }
  }
}

TEST(BlueBookReader, SurvivesAnyBytes) {
  std::uint32_t state = 1;
  const auto random = [&state] { return (state = state * 1664525U + 1013904223U) >> 16; };
  int points = 0;
  for (int file = 0; file < 200; ++file) {
    std::string bytes;
    for (int i = 0; i < 40; ++i) {
      std::string record = i % 3 == 0 ? kHeights : kGrid;
      constexpr std::string_view kAlphabet("0123456789. -+e*\n\r\t\0\xFF$x", 24);
      record[random() % record.size()] = kAlphabet[random() % kAlphabet.size()];
      bytes += record.substr(0, 40 + random() % 60) + "\n";
    }
    Reading reading(bytes);
    for (; reading.checked && reading.next() == ReadState::Point; ++points) {
      EXPECT_TRUE(std::isfinite(reading.point.InNorthLat + reading.point.InEastLon + reading.point.Elevation));
    }
  }
  EXPECT_GT(points, 100);
}

TEST(BlueBookReader, GivesTheStationInFrontOfALineThatIsTooLong) {
  Reading reading(kGrid + std::string(text::LineReader::kMaxLineLength - 80, 'x') + "\n" +
                  std::string(text::LineReader::kMaxLineLength + 1, 'x') + "\n" + kGrid);
  EXPECT_EQ(reading.next(), ReadState::Point);
  EXPECT_EQ(reading.next(), ReadState::End);
}

}  // namespace
}  // namespace tovak::formats
