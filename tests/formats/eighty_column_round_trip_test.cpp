// 80 column files made by hand, converted to themselves by an engine that changes nothing.
#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"
#include "support/unchanging_engine.h"

namespace tovak::formats {
namespace {

constexpr std::int16_t kEightyColumn = 2;

std::string sample(const char* name) {
  return std::string(TOVAK_SAMPLES_FOLDER "/") + name;
}

/// The lines of a file that hold points, without the blanks at their ends.
std::vector<std::string> pointLines(const std::string& fileName) {
  text::LineReader lines;
  EXPECT_TRUE(lines.open(fileName));
  std::vector<std::string> out;
  for (std::string_view line; lines.next(line);) {
    if (line.empty() || line.front() == '$') continue;
    out.emplace_back(line.substr(0, line.find_last_not_of(' ') + 1));
  }
  return out;
}

class EightyColumnRoundTrip : public testing::Test {
 protected:
  std::string convert(const std::string& source, const char* target, std::int16_t targetFormat, int accuracy) {
    run::RunSettings settings;
    settings.sourceFormat = kEightyColumn;
    settings.targetFormat = targetFormat;
    settings.SourceProjectionCode = settings.TargetProjectionCode = 4;
    settings.source.fileName = source;
    settings.target.fileName = folder_.file(target);
    settings.accuracy = accuracy;
    settings.allowBlankPointNumbers = true;
    settings.BatchMode = 2;
    tests::UnchangingEngine engine;
    tests::ScriptedPerson person;
    result = run::convert(settings, engine, formatTables(), person);
    return settings.target.fileName;
  }

  run::RunResult result;

 private:
  tests::TemporaryFolder folder_;
};

TEST_F(EightyColumnRoundTrip, ReturnsTheMetricAlignmentByteForByte) {
  const std::string file = sample("vesko80_alignment_metric.txt");
  EXPECT_EQ(pointLines(convert(file, "out", kEightyColumn, 0)), pointLines(file));
}

TEST_F(EightyColumnRoundTrip, ReturnsTheEnglishAlignmentAsTheSamePoints) {
  const std::string file = sample("vesko80_alignment_english.txt");
  const std::string again = convert(file, "again", kEightyColumn, 0);
  EXPECT_NE(pointLines(again), pointLines(file));
  const auto points = [this](const std::string& source, const char* target) {
    return pointLines(convert(source, target, run::target::CommaDelimited, 0));
  };
  EXPECT_EQ(points(again, "a.csv"), points(file, "b.csv"));
  EXPECT_EQ(result.counts.converted, 5U);
}

TEST_F(EightyColumnRoundTrip, ReadsBackOnlyWhatIsWrittenWithoutDecimals) {
  // The sample has wide northings and blank numbers.
  const std::string file = sample("vesko80_points.txt");
  const std::string whole = convert(file, "whole", kEightyColumn, 3);
  ASSERT_EQ(pointLines(whole).size(), 7U);
  EXPECT_EQ(pointLines(whole)[3], "0102BEACON HILL                   3000909.      1262574.B1184.  A MONQRDT23CTOWR");
  EXPECT_EQ(pointLines(whole)[5], " 106FERRY LANDING, PIER           2492200.      1354290.");
  EXPECT_EQ(pointLines(convert(whole, "again", kEightyColumn, 3)), pointLines(whole));

  // With decimals a point takes two lines, and a reader takes them for two points.
  const std::string split = convert(file, "split", kEightyColumn, 0);
  EXPECT_EQ(pointLines(split).size(), 14U);
  const std::vector<std::string> csv = pointLines(convert(split, "split.csv", run::target::CommaDelimited, 0));
  EXPECT_EQ(csv[0], "907553,2523548,DEPOT YARD,0104,3,,,");
  EXPECT_EQ(csv[1], "0.00,0.00,,0104,987.15,,,");
}

}  // namespace
}  // namespace tovak::formats
