#include "formats/survey/sdms_reader.h"

#include <gtest/gtest.h>

#include "support/scripted_person.h"
#include "support/temporary_folder.h"

namespace tovak::formats {
namespace {

using run::PointRecord;
using run::ReadState;

/// An SDMS file that is read point by point.
class Reading {
 public:
  explicit Reading(std::string_view bytes, std::int16_t code = 4) {
    settings_.SourceProjectionCode = code;
    lines_.open(folder_.write("points", bytes));
    reader_ = makeSdmsReader(
        {.lines = lines_, .settings = settings_, .counts = counts, .person = person_, .message = message});
  }

  bool check() { return reader_->check(); }
  ReadState read() {
    run::resetPoint(point);
    return reader_->read(point);
  }
  bool next() { return read() == ReadState::Point; }

  PointRecord point;
  run::RecordCounts counts;
  run::Message message;

 private:
  tests::TemporaryFolder folder_;
  run::RunSettings settings_;
  text::LineReader lines_;
  tests::ScriptedPerson person_;
  std::unique_ptr<run::PointReader> reader_;
};

std::vector<std::string> furtherFields(const PointRecord& point) {
  return {point.furtherFields.begin(),
          point.furtherFields.begin() + static_cast<std::ptrdiff_t>(point.furtherFieldCount)};
}

TEST(SdmsReader, PutsEachTagInItsPlace) {
  Reading reading(
      "HD:NAD27\n\nAC:TP\nPN:17\nPD:HILL\nST:1+00\nOF:2\nRA:ra\nCM:FOUND\nCM:IRON PIPE\nXC:500.5\nYC:150.25\nZC:812.3\n"
      "HE:1.5x\nHG:-27\nPH:DSK\nOW:VSK\nOD:TO\nLT:451234.5\nLG:930000\nFE:MON\nFG:L1\nZQ:7\nOFFICE\n"
      "X\nAC:CP\nPH:\nYC:1\nXC:2\n");
  ASSERT_TRUE(reading.next());
  const PointRecord& p = reading.point;
  EXPECT_EQ(p.InNorthLat, 150.25);
  EXPECT_EQ(p.InEastLon, 500.5);
  EXPECT_EQ(p.Elevation, 812.3);
  EXPECT_EQ(p.elevationDecimals, 2);
  EXPECT_EQ(p.sourceLine, 3U);
  const std::vector<std::string> texts = {p.sectionLine, p.pointNumber, p.description, p.station,
                                          p.offset,      p.raField,     p.comment,     p.phField,
                                          p.owField,     p.odField,     p.geoidHeight, p.ellipsoidHeight,
                                          p.featureCode, p.figure,      p.latitude,    p.longitude};
  EXPECT_EQ(texts, (std::vector<std::string>{"AC:TP", "17", "HILL", "1+00", "2", "ra", "FOUND IRON PIPE", "DSK", "VSK",
                                             "TO", "-27", "1.5x", "MON", "L1", "451234.5", "930000"}));
  EXPECT_EQ(furtherFields(p), (std::vector<std::string>{"ZQ:7", "OFFICE", "X"}));
  // Nothing of it is left in the next point.
  ASSERT_TRUE(reading.next());
  EXPECT_EQ(p.sectionLine, "AC:CP");
  EXPECT_EQ(p.pointNumber + p.comment + p.featureCode, "");
  EXPECT_EQ(p.phField + p.odField, "       ");
  EXPECT_EQ(p.Elevation, 0.0);
  EXPECT_EQ(p.furtherFieldCount, 0U);
  EXPECT_EQ(reading.read(), ReadState::End);
}

TEST(SdmsReader, ChoosesAmongCoordinates) {
  const struct {
    const char* lines;
    std::int16_t code;
    double northing;
    double easting;
    double elevation;
    int decimals;
  } cases[] = {
      {"YC:5\nXC:0\nXX:500000.12", 4, 5, 500000.12, 0, 0},
      {"YC:5\nXX:500000.12\nXC:0", 4, 5, 500000.12, 0, 0},
      {"YC:5\nXC:499999.50\nXX:500000.12", 4, 5, 499999.5, 0, 0},
      {"YC:5\nXX:500000.12\nXC:499999.50", 4, 5, 499999.5, 0, 0},
      {"YY:6\nXC:1", 4, 6, 1, 0, 0},
      {"YY:6\nYC:5\nYC:0\nXC:1", 4, 5, 1, 0, 0},
      {"YC:1\nXC:2\nZC:812", 4, 1, 2, 812, 3},
      {"YC:1\nXC:2\nZC:812.34", 4, 1, 2, 812.34, 1},
      {"YC:1\nXC:2\nZC:", 4, 1, 2, 0, 0},
      {"YC:1\nXC:2\nZC:0\nZZ:9.5", 4, 1, 2, 9.5, 2},
      {"YC:1\nXC:2\nZZ:9.5\nZC:0", 4, 1, 2, 9.5, 2},
      {"YC:1\nXC:2\nZC:8.25\nZZ:9.5", 4, 1, 2, 8.25, 1},
      {"YC:1\nXC:2\nLT:451234.5\nLG:930000", 103, 451234.5, 930000, 0, 0},
      {"YC:1\nXC:2\nLT:45 12 34.5\nLG: 93 06 00", 0, 451234.5, 930600, 0, 0},
      {"yc:1 m\nXc:2e3\nzc:3", 4, 1, 2000, 3, 3},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.lines);
    for (const bool crLf : {false, true}) {
      std::string bytes = "AC:CP\n" + std::string(c.lines) + "\n";
      for (std::size_t at = 0; crLf && (at = bytes.find('\n', at)) != std::string::npos; at += 2)
        bytes.insert(at, "\r");
      Reading reading(bytes, c.code);
      ASSERT_TRUE(reading.next());
      EXPECT_EQ(reading.point.InNorthLat, c.northing);
      EXPECT_EQ(reading.point.InEastLon, c.easting);
      EXPECT_EQ(reading.point.Elevation, c.elevation);
      EXPECT_EQ(reading.point.elevationDecimals, c.decimals);
    }
  }
}

TEST(SdmsReader, PassesOverSectionsWithoutBothCoordinates) {
  Reading reading(
      "$ note\nAC:\nAC:CP\nPN:1\nYC:5\nAC:CP\nPN:2\n  YC:5\n\n   XC:6  \nAC:CP\nXC:7\nac:eq\nYC:1\nXC:2\nAC:PR "
      "\nAC:CP\n"
      "PN:3\nYC:8\nXC:9\nAC:");
  ASSERT_TRUE(reading.next());
  EXPECT_EQ(reading.point.pointNumber, "2");
  EXPECT_EQ(reading.point.sourceLine, 6U);
  ASSERT_TRUE(reading.next());
  EXPECT_EQ(reading.point.pointNumber, "3");
  EXPECT_EQ(reading.read(), ReadState::End);
  EXPECT_EQ(reading.read(), ReadState::End);
  EXPECT_EQ(reading.counts.zeroCoordinate.count, 4U);
  EXPECT_EQ(reading.counts.zeroCoordinate.firstLine, 2U);
  EXPECT_EQ(reading.counts.comment.count, 1U);
}

TEST(SdmsReader, ChecksForCoordinatesOfTheSourcesKind) {
  const struct {
    const char* bytes;
    std::int16_t code;
    bool valid;
  } cases[] = {
      {"AC:CP\nYC:0\nXC:5\nAC:CP\nYC:1\nXC:2\n", 4, true},
      {"AC:CP\nYY:1\nXX:2\n", 4, true},
      {"AC:CP\nLT:1\nLG:2\n", 4, false},
      {"AC:CP\nLT:451234\nLG:930000\n", 0, true},
      {"AC:CP\nYC:1\nXC:2\n", 103, false},
      {"AC:CP\nYC:1\nAC:CP\nXC:2\n", 4, false},
      {"AC:EQ\nYC:1\nXC:2\n", 4, false},
      {"YC:1\nXC:2\n", 4, false},
      {"", 4, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bytes);
    Reading reading(c.bytes, c.code);
    EXPECT_EQ(reading.check(), c.valid);
    EXPECT_EQ(recordsRead(reading.counts), 0U);
    EXPECT_EQ(reading.message.title, c.valid ? "" : "Invalid SDMS file");
    if (c.valid) {
      EXPECT_TRUE(reading.next());
    } else {
      EXPECT_EQ(reading.message.text, "This SDMS file does not contain valid coordinates.  Please correct this.");
    }
  }
}

TEST(SdmsReader, TakesNoPointFromASectionThatIsCutShort) {
  // A section that outgrows memory stops the run; one with an overlong line leaves its fault to the run.
  std::string longSection = "AC:CP\nYC:1\nXC:2\nAC:CP\nYC:3\nXC:4\n";
  for (int i = 0; i < 50000; ++i) longSection += "x\n";
  Reading tooLong(longSection);
  ASSERT_TRUE(tooLong.check() && tooLong.next());
  EXPECT_EQ(tooLong.read(), ReadState::Stopped);
  EXPECT_TRUE(tooLong.message.text.ends_with("points: the section in line 4 is longer than 1 MiB"));

  Reading overlongLine("AC:CP\nYC:1\nXC:2\n" + std::string(text::LineReader::kMaxLineLength + 1, 'x'));
  EXPECT_EQ(overlongLine.read(), ReadState::End);
}

TEST(SdmsReader, SurvivesTruncationAndAnyBytes) {
  const std::string record = "HD:x\nAC:EQ\nSN:1\nAC:CP\nPN:17\nYC:150\nXC:500\nZC:8.5\nZQ:7\nOD:T\n";
  const std::size_t easting = record.find("XC:");
  for (std::size_t length = 0; length <= record.size(); ++length) {
    Reading reading(record.substr(0, length));
    // Digit by digit the easting is a shorter number, but there is one from the first.
    EXPECT_EQ(reading.next(), length > easting + 3) << length;
    EXPECT_FALSE(reading.next());
  }
  std::string bytes;
  std::uint32_t state = 1;
  constexpr std::string_view kPieces[] = {"\n", "\n",  "AC:", "ac:EQ", "YC:", "XC:",  "ZC:",
                                          "1",  "2.5", "$",   "PN:",   "\r",  " ",    "ZZ:",
                                          "C",  ":",   "e9",  "-",     ".",   "\xFF", std::string_view("\0", 1)};
  for (int i = 0; i < 200000; ++i) {
    state = state * 1664525U + 1013904223U;
    bytes += kPieces[(state >> 16) % std::size(kPieces)];
  }
  Reading reading(bytes);
  ASSERT_TRUE(reading.check());
  while (reading.next()) EXPECT_NE(reading.point.InNorthLat, 0.0);
}

}  // namespace
}  // namespace tovak::formats
