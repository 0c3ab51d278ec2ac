#include "formats/survey/eighty_column_reader.h"

#include <gtest/gtest.h>

#include "support/scripted_person.h"
#include "support/temporary_folder.h"

namespace tovak::formats {
namespace {

using run::ReadState;
using namespace std::string_view_literals;

run::Message fileMessage(const char* text) {
  return {.text = text, .title = "Invalid UCC file", .icon = run::Icon::Exclamation};
}

class Reading {
 public:
  explicit Reading(std::string_view bytes) {
    lines_.open(folder_.write("points", bytes));
    reader_ = makeEightyColumnReader(
        {.lines = lines_, .settings = settings_, .counts = counts, .person = person_, .message = message});
    usable = reader_->check();
  }

  ReadState next() {
    run::resetPoint(point);
    return reader_->read(point);
  }

  bool usable = false;
  run::PointRecord point;
  run::RecordCounts counts;
  run::Message message;

 private:
  tests::TemporaryFolder folder_;
  run::RunSettings settings_;
  text::LineReader lines_;
  tests::ScriptedPerson person_;
  std::unique_ptr<run::PointReader> reader_;
};

constexpr std::string_view kOrdinary =
    "0104DEPOT YARD                    2523547.767907553.363BM 987.15  MONQRDT23CXXXX";
constexpr std::string_view kAlignment =
    "0002TR 12   0+412.350 R 350.000    769561.004276777.865PC               L12 12  ";

/// `kOrdinary` with `text` in place of what stands from `column` on.
std::string with(std::size_t column, std::string_view text, std::string_view line = kOrdinary) {
  return std::string(line).replace(column - 1, text.size(), text);
}

TEST(EightyColumnReader, TakesTheOrdinaryFieldsFromTheirColumns) {
  Reading reading(std::string(kOrdinary) + "beyond\n");
  ASSERT_EQ(reading.next(), ReadState::Point);
  const run::PointRecord& p = reading.point;
  const std::vector<std::string> texts = {p.pointNumber, p.description,  p.code,    p.phField, p.owField,
                                          p.odField,     p.trailerGroup, p.station, p.raField, p.classCode};
  EXPECT_EQ(texts, (std::vector<std::string>{"0104", "DEPOT YARD" + std::string(20, ' '), "BM", "MON", "QRDT", "XXXX",
                                             "  MONQRDT23CXXXX", "", "", "BQR23"}));
  EXPECT_EQ(p.InNorthLat, 907553.363);
  EXPECT_EQ(p.InEastLon, 2523547.767);
  EXPECT_EQ(p.Elevation, 987.15);
  EXPECT_EQ(p.elevationDecimals, 1);
  EXPECT_FALSE(p.alignmentPoint);
}

TEST(EightyColumnReader, ReadsNumbersCodesAndMarks) {
  const struct {
    std::size_t column;
    const char* text;
    double easting;
    double northing;
    const char* code;
    double elevation;
    int decimals;
    const char* classCode;
  } cases[] = {
      {35, " 12 34 .5 6", 1234.56, 907553.363, "BM", 987.15, 1, "BQR23"},
      {35, "   12.5ft 9", 12.5, 907553.363, "BM", 987.15, 1, "BQR23"},
      {35, "   unknown ", 0, 907553.363, "BM", 987.15, 1, "BQR23"},
      {46, "          ", 2523547.767, 0, "BM", 987.15, 1, "BQR23"},
      {46, "999999.999A ", 2523547.767, 999999.999, "A ", 987.15, 1, "BQR23"},
      {46, "1000000.  A1", 2523547.767, 1000000, "1", 987.15, 1, "BQR23"},
      {46, "1234567.891C", 2523547.767, 1234567.891, "C", 987.15, 1, "BQR23"},
      {58, "        ", 2523547.767, 907553.363, "BM", 0, 0, "BQR23"},
      {58, "123     ", 2523547.767, 907553.363, "BM", 123, 3, "BQR23"},
      {58, "123.4   ", 2523547.767, 907553.363, "BM", 123.4, 3, "BQR23"},
      {58, " 123.4  ", 2523547.767, 907553.363, "BM", 123.4, 2, "BQR23"},
      {58, " 812.345", 2523547.767, 907553.363, "BM", 812.345, 0, "BQR23"},
      {58, "       Z", 2523547.767, 907553.363, "BM", 0, 0, "ZQR23"},
      {58, " -12.34A", 2523547.767, 907553.363, "BM", -12.34, 0, "AQR23"},
      {58, " 812.34a", 2523547.767, 907553.363, "BM", 812.34, 0, "BQR23"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    Reading reading(with(c.column, c.text));
    ASSERT_EQ(reading.next(), ReadState::Point);
    EXPECT_EQ(reading.point.InEastLon, c.easting);
    EXPECT_EQ(reading.point.InNorthLat, c.northing);
    EXPECT_EQ(reading.point.code, c.code);
    EXPECT_EQ(reading.point.Elevation, c.elevation);
    EXPECT_EQ(reading.point.elevationDecimals, c.decimals);
    EXPECT_EQ(reading.point.classCode, c.classCode);
  }
}

TEST(EightyColumnReader, TakesTheAlignmentFieldsFromTheirColumns) {
  Reading reading("$\n" + std::string(kAlignment) + "\n" + with(1, "    TH", kAlignment) + "\n" +
                  with(46, "1234567.89", kOrdinary));
  ASSERT_EQ(reading.next(), ReadState::Point);
  const run::PointRecord& p = reading.point;
  const std::vector<std::string> texts = {p.pointNumber, p.description, p.station, p.raField,   p.phField,
                                          p.owField,     p.odField,     p.code,    p.classCode, p.trailerGroup};
  EXPECT_EQ(texts, (std::vector<std::string>{"0002", "TR 12   0+412.350 R 350.000   ", "0+412.350", "R 350.000", "PC  ",
                                             "L12 ", "12  ", "  ", "BQR23", "  MONQRDT23CXXXX"}));
  EXPECT_EQ(p.InNorthLat, 276777.865);
  EXPECT_EQ(p.InEastLon, 769561.004);
  EXPECT_TRUE(p.alignmentPoint);

  // A blank number is not carried over, and lines behind the first are not tested again.
  ASSERT_EQ(reading.next(), ReadState::Point);
  EXPECT_EQ(p.pointNumber, "");
  ASSERT_EQ(reading.next(), ReadState::Point);
  EXPECT_EQ(p.phField, "BM 9");
  EXPECT_EQ(p.InNorthLat, 1234567.89);
  EXPECT_EQ(p.Elevation, 0);
  EXPECT_TRUE(p.alignmentPoint);
}

TEST(EightyColumnReader, KnowsAnAlignmentFileByTheStationOfItsFirstPoint) {
  const struct {
    const char* station;  ///< from column 10 on
    bool alignment;
  } cases[] = {{"   1+234.567", true},  {"    12+34.56", true},   {"   1+23.45  ", false},
               {"  1+234.567 ", false}, {"    12+345.67", false}, {"     12+34.5", false}};
  for (const auto& c : cases) {
    Reading reading(with(10, c.station));
    ASSERT_EQ(reading.next(), ReadState::Point);
    EXPECT_EQ(reading.point.alignmentPoint, c.alignment) << c.station;
  }
}

TEST(EightyColumnReader, KeepsTheNumberOverBlankOnes) {
  Reading reading(with(1, "    ") + "\n" + with(1, " 7  ") + "\n" + with(1, "    ") + "\n" + with(1, "A") + "\n");
  for (const char* const number : {"", " 7  ", " 7  ", "A104"}) {
    ASSERT_EQ(reading.next(), ReadState::Point);
    EXPECT_EQ(reading.point.pointNumber, number);
  }
}

TEST(EightyColumnReader, PassesOverBlankLinesAndComments) {
  Reading reading("$Tovak#4$\n\n   \n" + std::string(kOrdinary) + "\n$\ta tab\n \n" + std::string(kOrdinary));
  for (const std::uint64_t line : {4U, 7U}) {
    ASSERT_EQ(reading.next(), ReadState::Point);
    EXPECT_EQ(reading.point.sourceLine, line);
  }
  EXPECT_EQ(reading.next(), ReadState::End);
  EXPECT_EQ(reading.counts.comment.count, 2U);
}

TEST(EightyColumnReader, RefusesAFileWithoutPoints) {
  for (const char* const bytes : {"", "\n", "$ only\n\n      \r\n$"}) {
    Reading reading(bytes);
    EXPECT_FALSE(reading.usable);
    EXPECT_EQ(reading.message, fileMessage("This UCC file does not contain any valid records.  Please correct this."));
  }
}

TEST(EightyColumnReader, EndsAtTheFirstLineWithATab) {
  for (const std::size_t before : {0U, 1U, 9U}) {
    std::string bytes;
    for (std::size_t i = 0; i < before; ++i) bytes += std::string(kOrdinary) + "\n";
    Reading reading(bytes + std::string(kOrdinary) + " \t\n" + std::string(kOrdinary));
    EXPECT_TRUE(reading.usable);
    for (std::size_t i = 0; i < before; ++i) ASSERT_EQ(reading.next(), ReadState::Point);
    ASSERT_EQ(reading.next(), ReadState::EndedEarly);
    EXPECT_EQ(reading.message, fileMessage("This UCC file contains at least one TAB.  Please correct this.\n"
                                           "The output file will be complete to the first line with a TAB."));
  }
}

TEST(EightyColumnReader, ReadsAShortLineAsIfPaddedWithBlanks) {
  for (const std::string_view whole : {kOrdinary, kAlignment}) {
    for (std::size_t length = 1; length <= whole.size(); ++length) {
      SCOPED_TRACE(length);
      Reading cut(whole.substr(0, length));
      Reading padded(std::string(whole.substr(0, length)) + std::string(80 - length, ' ') + "\n");
      ASSERT_EQ(cut.next(), ReadState::Point);
      ASSERT_EQ(padded.next(), ReadState::Point);
      const run::PointRecord &a = cut.point, &b = padded.point;
      EXPECT_EQ(a.description + a.phField + a.owField + a.odField + a.code + a.trailerGroup + a.raField,
                b.description + b.phField + b.owField + b.odField + b.code + b.trailerGroup + b.raField);
      EXPECT_EQ(a.InEastLon + a.InNorthLat + a.Elevation, b.InEastLon + b.InNorthLat + b.Elevation);
      EXPECT_EQ(a.elevationDecimals, b.elevationDecimals);
      EXPECT_EQ(a.trailerGroup.size(), 16U);
    }
  }
}

TEST(EightyColumnReader, SurvivesAnyBytes) {
  std::string bytes = "x\n";
  std::uint32_t state = 1;
  for (int i = 0; i < 200000; ++i) {
    state = state * 1664525U + 1013904223U;
    constexpr std::string_view kAlphabet = "0123456789..  -+eE$A\n\r\0\xFF"sv;
    bytes += kAlphabet[(state >> 16) % kAlphabet.size()];
  }
  bytes += "\n" + std::string(text::LineReader::kMaxLineLength, '9') + "\n1";
  for (const std::string_view first : {kOrdinary, kAlignment}) {
    Reading reading(std::string(first) + "\n" + bytes);
    while (reading.next() == ReadState::Point) EXPECT_EQ(reading.point.description.size(), 30U);
    EXPECT_EQ(reading.point.sourceLine, 0U);
    EXPECT_GT(reading.counts.comment.count, 0U);
  }
}

}  // namespace
}  // namespace tovak::formats
