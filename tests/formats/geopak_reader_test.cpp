#include "formats/survey/geopak_reader.h"

#include <gtest/gtest.h>

#include "support/scripted_person.h"
#include "support/temporary_folder.h"

namespace tovak::formats {
namespace {

using run::ReadState;

/// A listing that is read point by point.
class Reading {
 public:
  explicit Reading(std::string_view bytes) : fileName(folder_.write("listing", bytes)) {
    lines_.open(fileName);
    reader_ = makeGeopakReader(
        {.lines = lines_, .settings = settings_, .counts = counts, .person = person_, .message = message});
  }

  bool check() { return reader_->check(); }

  ReadState read() {
    run::resetPoint(point);
    return reader_->read(point);
  }

  /// The points that are left, each with its number, feature code and description.
  std::string rest() {
    std::string texts;
    while (read() == ReadState::Point) {
      texts += point.pointNumber + '/' + point.featureCode + '/' + point.description + ' ';
    }
    return texts;
  }

 private:
  tests::TemporaryFolder folder_;
  run::RunSettings settings_;
  text::LineReader lines_;
  tests::ScriptedPerson person_;
  std::unique_ptr<run::PointReader> reader_;

 public:
  const std::string fileName;
  run::PointRecord point;
  run::RecordCounts counts;
  run::Message message;
};

run::Message complaint(const std::string& text) {
  return {text, "Invalid Geopak File", run::Icon::Exclamation};
}

const std::string kHeader = " Point Northing Easting Station Elevation\n";
/// Point number in columns 1 to 11; fields from columns 12, 22, 32 and 42.
const std::string kUnderline = "----------- --------- --------- --------- ---------\n";
const std::string kHeading = kHeader + kUnderline;

TEST(GeopakReader, TakesFieldsByTheirColumns) {
  const std::string eastingFirst = " Point X Y Station Elevation\n" + kUnderline;
  const struct {
    std::string heading;
    const char* line;
    const char* number;
    double northing;
    double easting;
    const char* station;
    double elevation;
    int decimals;
  } cases[] = {
      {kHeading, "       17  15000.45  50000.04   10+00.5   812.345", "17", 15000.45, 50000.04, "10+00.5", 812.345, 0},
      {eastingFirst, "       17  15000.45  50000.04   10+00.5     812.3", "17", 50000.04, 15000.45, "10+00.5", 812.3,
       2},
      // The blank in front of a column belongs to it.
      {kHeading, "A 12345678B15000.4567-50000.0441234567890-12.25 ft", "A 12345678B", 15000.4567, -50000.044,
       "1234567890", -12.25, 1},
      {kHeading, "1           1,234.50 9,000,000            1,012.25", "1", 1234.5, 9000000, "", 1012.25, 1},
      {kHeading, "1           1         2         3         4,000      ", "1", 1, 2, "3", 4000, 3},
      // Lines that end early, and numbers that are none.
      {kHeading, "1           1         2         3", "1", 1, 2, "3", 0, 0},
      {kHeading, "1           15", "1", 15, 0, "", 0, 0},
      {kHeading, "1", "1", 0, 0, "", 0, 0},
      {kHeading, "1           n/a       12x       s         none", "1", 0, 12, "s", 0, 0},
      // Indented, but the first of all: it cannot belong to a point above it.
      {kHeading, "            15000     50000", "", 15000, 50000, "", 0, 0},
      // Without a column for the elevation, or with one too far to the right, there is none for the station either.
      {kHeader + "----- ---- ---- ----\n", "17   100  200  300  400", "17", 100, 200, "", 0, 0},
      {kHeader + "----- ---- ---- " + std::string(250, '-') + " --\n", "17   100  200  300", "17", 100, 200, "", 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    Reading reading("$ title\n" + c.heading + "\n  \n" + c.line);
    ASSERT_TRUE(reading.check());
    ASSERT_EQ(reading.read(), ReadState::Point);
    EXPECT_EQ(reading.point.pointNumber, c.number);
    EXPECT_EQ(reading.point.InNorthLat, c.northing);
    EXPECT_EQ(reading.point.InEastLon, c.easting);
    EXPECT_EQ(reading.point.station, c.station);
    EXPECT_EQ(reading.point.Elevation, c.elevation);
    EXPECT_EQ(reading.point.elevationDecimals, c.decimals);
    EXPECT_EQ(reading.point.sourceLine, 6U);
    EXPECT_EQ(reading.read(), ReadState::End);
    EXPECT_EQ(reading.read(), ReadState::End);
  }
}

TEST(GeopakReader, RefusesAListingWithoutColumnsOrPoints) {
  const std::string wide(242, '-');
  const struct {
    const char* why;
    std::string bytes;
    bool usable;
  } cases[] = {
      {"empty", "", false},
      {"half a header", " Point X Y\n" + kUnderline + "1   1 2\n", false},
      {"ends with the underline", kHeading, false},
      {"nothing but rules and blanks", kHeading + "\n   \n" + kUnderline + "\r\n", false},
      {"no underline", kHeader + "1   -1.5   -2.5   -3.5   -4.5\n2   -1.5   -2.5   -3.5   -4.5\n", false},
      {"empty underline", kHeader + "\n" + kUnderline + "1   1 2\n", false},
      {"no column", kHeader + "-----------\n1   1 2\n", false},
      {"two columns", kHeader + "----------- ---- -----\n1   1 2\n", false},
      {"no room for a number", kHeader + " ---- ---- ---- ----\n1   1 2\n", false},
      {"column 255", kHeader + wide + " ----- ----- -----\n1\n", true},
      {"column 256", kHeader + wide + "- ----- ----- -----\n1\n", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    Reading reading(c.bytes);
    EXPECT_EQ(reading.check(), c.usable);
    const run::Message none = complaint("No Geopak Points Found in\n" + reading.fileName);
    EXPECT_TRUE(reading.message == (c.usable ? run::Message() : none)) << reading.message.text;
  }
}

TEST(GeopakReader, GathersWhatIsSaidAboutAPoint) {
  const std::string page = "* page 2\n  Feature: of the page\n9   1  2\n" + kHeader + "-----------------\n";
  const struct {
    std::string lines;
    const char* points;
  } cases[] = {
      {"1\n            Feature: CURB  \n            Description:  NE: CORNER \n2\n", "1/CURB/NE: CORNER 2// "},
      {"1\n-----------Feature:A\n2\n", "1/A/ 2// "},
      {"1\n            Description: Feature of note\n", "1/Feature of note/ "},
      {"1\n            Feature A\n            Description\n            Type: B\n", "1// "},
      {"1\n            Feature: A\n            Feature:   \n", "1// "},
      {"1\n          Feature: A\n", "1// F// "},
      {"1\n\n \n          \n           \n2\n", "1// 2// "},
      {"1\n----------\n2\n", "1// ----------// 2// "},
      {"1\n" + page + "            Feature: A\n2\n", "1/A/ 2// "},
      {page + page + "1\n2\n", "1// 2// "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.lines);
    Reading reading(kHeading + c.lines);
    ASSERT_TRUE(reading.check());
    EXPECT_EQ(reading.rest(), c.points);
    EXPECT_EQ(run::recordsPassedOver(reading.counts), 0U);
  }
}

TEST(GeopakReader, AccountsForTheLinesOfAHeadingWithoutEnd) {
  Reading reading(kHeading + "1\n* page 2\n----------\n2\n3\n");
  ASSERT_TRUE(reading.check());
  EXPECT_EQ(reading.rest(), "1// ");
  EXPECT_EQ(reading.counts.comment.count, 4U);
  EXPECT_EQ(reading.counts.comment.firstLine, 4U);
}

TEST(GeopakReader, StopsAtANumberWithAStrayComma) {
  for (const std::string line : {"2           1,2x     500", "2           500      1,23,4.5",
                                 "2           1         2         3         12,5"}) {
    SCOPED_TRACE(line);
    Reading reading(kHeading + "1           1,000    500\n\n" + line + "\n3           1        2\n");
    ASSERT_TRUE(reading.check());
    EXPECT_EQ(reading.read(), ReadState::Point);
    EXPECT_EQ(reading.read(), ReadState::Stopped);
    EXPECT_TRUE(reading.message == complaint("Invalid Number Found in\n" + reading.fileName + ": line 5"));
  }
}

TEST(GeopakReader, SurvivesAnyBytes) {
  const std::string whole =
      kHeading +
      "1           1,234.5   500.5     10+00     812.5\n            Feature: CURB\n* page 2\n"
      "-----------\n2           1,234.5   500.5     10+00     812.5\n            Description: A\n";
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    Reading reading(whole.substr(0, length));
    if (reading.check()) reading.rest();
  }
  Reading odd(kHeading + std::string(40, '\0') + "\n" + std::string(std::size_t{1} << 20, '\xFF') + "\n");
  ASSERT_TRUE(odd.check());
  EXPECT_EQ(odd.read(), ReadState::Point);
  EXPECT_EQ(odd.read(), ReadState::Point);
  EXPECT_EQ(odd.read(), ReadState::End);
}

}  // namespace
}  // namespace tovak::formats
