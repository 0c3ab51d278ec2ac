// Reports compared with their layout: columns counted by hand, "=" alone for 76 em dashes and "-" alone for 76 hyphens.
#include "report/report_writer.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "run/format_index.h"
#include "support/allocation_counter.h"
#include "support/temporary_folder.h"

namespace tovak::report {
namespace {

std::string repeated(std::string_view text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

/// A golden text, which begins behind its first line end, with its rules drawn.
std::string golden(std::string text) {
  const std::pair<std::string, std::string> rules[] = {{"   =\n", "   " + repeated("\xE2\x80\x94", 76) + "\n"},
                                                       {"   -\n", "   " + std::string(76, '-') + "\n"}};
  for (const auto& [sign, rule] : rules) {
    for (std::size_t at = 0; (at = text.find(sign)) != std::string::npos;) text.replace(at, sign.size(), rule);
  }
  return text.substr(1);
}

const std::string kClosing = golden(R"(
   =
                1 meter = 3.280833333 (39.37/12) U.S. Survey feet
)");

class Report : public testing::Test {
 protected:
  Report() {
    settings.sourceFormat = run::source::CommaDelimited;
    settings.targetFormat = run::target::CommaDelimited;
    settings.TargetProjectionCode = 4;
    settings.target.metres = true;
    settings.source.fileName = "/data/in.csv";
    settings.target.fileName = "/data/out.csv";
    settings.reportFileName = folder.file("day.rpt");
    settings.appendReport = false;
    point.pointNumber = "101";
    point.description = "ALDER BRIDGE";
    point.InNorthLat = 45.50430555555556;
    point.InEastLon = -93.25;
    point.OutNorthLat = 400123.4567;
    point.OutEastLon = 2500000.5;
    point.OutInfo = "-0-12-34.56 0.999912345 State plane South";
  }

  /// Writes a report of the point, so many times, and gives what is in the file then.
  std::string written(int points = 1) {
    text::LineWriter lines;
    using Way = text::TargetFile::Way;
    EXPECT_TRUE(lines.open(settings.reportFileName, settings.appendReport ? Way::Append : Way::Replace, reportJoint));
    const auto writer = makeReportWriter({.lines = lines, .settings = settings, .heading = heading});
    EXPECT_TRUE(writer->begin());
    const std::size_t before = tests::allocationCount();
    for (int i = 0; i < points; ++i)
      EXPECT_TRUE(refusal.empty() ? writer->write(point) : writer->writeRefused(point, refusal));
    allocations = tests::allocationCount() - before;
    EXPECT_TRUE(writer->end() && lines.commit());
    return tests::contentsOf(settings.reportFileName);
  }
  /// The lines between the heads of the columns and the closing lines.
  std::string block() {
    const std::string report = written();
    const std::size_t from = report.find('\n', report.find("Target ", report.find("Vertical ("))) + 1;
    return report.substr(from, report.size() - kClosing.size() - from);
  }

  const tests::TemporaryFolder folder;
  run::RunSettings settings;
  run::ReportHeading heading = {"1.2.3", {2026, 11, 21}, "NAD83(2011) Lat Long", "NAD83(2011) State plane South"};
  run::PointRecord point;
  std::string refusal;
  std::size_t allocations = 0;  ///< while the points were written
};

TEST_F(Report, FromTheKeyboardToTheScreen) {
  settings.source.fileName.clear();
  settings.target.fileName.clear();
  settings.SourceProjectionCode = 107;
  settings.TargetProjectionCode = 103;
  settings.verticalDatum = run::VerticalDatum::Ngvd29;
  heading = {"10.20.30", {2026, 3, 9}, "NAD27 State plane South", "NAD27 Lat Long"};
  std::swap(point.InNorthLat, point.OutNorthLat);
  std::swap(point.InEastLon, point.OutEastLon);
  EXPECT_EQ(written(), golden(R"(
   Tovak (V10.20.30) Report        Conversion Date:03/09/2026            Page 1
     Source Proj:NAD27 State plane South
     Target Proj:NAD27 Lat Long
     Source Data:Input From Keyboard
     Target Data:Output To Screen
   =
   Point Number      Point Description                             Vertical (NGVD29)
        Source (f)           Target L-L
   -
   101               ALDER BRIDGE
        YC: 400123.457       LT: 45 30 15.50000
        XC:2500000.500       LG:-93 15 00.00000
)") + kClosing);
}

TEST_F(Report, HasPagesOfFourteenPoints) {
  settings.reportDescription = "Bridge widening, second visit";
  const auto page = [](char number, int count) {
    std::string head = golden(R"(
   Tovak (V1.2.3) Report        Conversion Date:11/21/2026               Page #
     Source Proj:NAD83(2011) Lat Long
     Target Proj:NAD83(2011) State plane South
     Input  File:/data/in.csv
     Output File:/data/out.csv
     Description:Bridge widening, second visit
   =
   Point Number      Point Description                             Vertical (NAVD88)
        Source L-L           Target (m)
)");
    head[head.find('#')] = number;
    const std::string block = golden(R"(
   -
   101               ALDER BRIDGE
        LT: 45 30 15.50000   YC: 400123.457   Theta:-0-12-34.56
        LG:-93 15 00.00000   XC:2500000.500
)");
    return head + repeated(block, count) + kClosing;
  };
  const std::string full = page('1', 14), onThird = full + "\f\n" + page('2', 14) + "\f\n" + page('3', 1);
  const std::pair<int, std::string> reports[] = {
      {0, page('1', 0)}, {1, page('1', 1)}, {14, full}, {15, full + "\f\n" + page('2', 1)}, {29, onThird}};
  std::size_t forOnePage = 0;
  for (const auto& [points, report] : reports) {
    EXPECT_EQ(written(points), report) << points;
    if (points == 14) forOnePage = allocations;
  }
  EXPECT_EQ(allocations, forOnePage) << "more pages ask for no more memory";
  EXPECT_NE(written(9 * 14 + 1).find("2026              Page 10\n"), std::string::npos);

  // A new report behind an earlier one begins on a new page; behind anything else it simply follows.
  settings.appendReport = true;
  const std::string overBlocks = "3.280833333" + std::string(65529, 'x') + '\n';
  const std::pair<std::string, std::string> older[] = {
      {full, full + "\f\n"}, {"a note\n", "a note\n"}, {"no end", "no end\n"}, {overBlocks, overBlocks + "\f\n"}};
  for (const auto& [before, behind] : older) {
    folder.write("day.rpt", before);
    EXPECT_EQ(written(1), behind + page('1', 1)) << before.substr(0, 20);
  }
}

TEST_F(Report, ShowsTheElevationOnceMoreForEachOtherHeight) {
  point.Elevation = 250.5;
  const std::string hg = "    HG:  250.500", he = "                        HE:  250.500";
  const std::tuple<const char*, const char*, std::string, std::string> cases[] = {
      {"", "", "", ""}, {"-27.1", "0", hg, ""}, {"0.000", "223.4", "", he}, {"-27.1", "223.4", hg, he}};
  for (const auto& [geoid, ellipsoid, second, third] : cases) {
    point.geoidHeight = geoid;
    point.ellipsoidHeight = ellipsoid;
    EXPECT_EQ(block(), golden(R"(
   -
   101               ALDER BRIDGE                                  ZC:  250.500
        LT: 45 30 15.50000   YC: 400123.457   Theta:-0-12-34.56)" +
                              second + "\n        LG:-93 15 00.00000   XC:2500000.500" + third + "\n"));
  }
}

TEST_F(Report, SetsTransverseMercatorInFeetWideAndTextsAsTheyWereKept) {
  heading.source = heading.target = "NAD83 Universal Transverse Mercator zone 15";
  settings.SourceProjectionCode = settings.TargetProjectionCode = 1;
  settings.accuracy = static_cast<text::Accuracy>(2);
  settings.source.metres = true;
  settings.target.metres = false;
  point.packedAngles = {.latitude = 450123.4, .longitude = 932345.678};
  EXPECT_EQ(block(), golden(R"(
   -
   101               ALDER BRIDGE
        YC:  450123.40       YC:    400123.5
        XC:  932345.68       XC:   2500000.5
)"));
  settings.latLongForm = text::AngleForm::DecimalDegrees;
  settings.TargetProjectionCode = 103;
  point.OutNorthLat = 45.50430555555556;
  EXPECT_NE(block().find("LT:   45.504305556\n"), std::string::npos);

  constexpr std::int16_t kWithTheta[] = {2, 102, 105, 107, 268}, kWithout[] = {0, 1, 103, 104, 108, 263, 264, 267};
  const auto showsTheta = [this](std::int16_t code) {
    settings.TargetProjectionCode = code;
    return block().find("  Theta:-0-12-34.56\n") != std::string::npos;
  };
  EXPECT_TRUE(std::ranges::all_of(kWithTheta, showsTheta) && std::ranges::none_of(kWithout, showsTheta));
}

TEST_F(Report, MovesWhatFollowsALongTextToTheNextLine) {
  point.Elevation = 250.5;
  point.pointNumber = "A NUMBER OF NINETEEN";
  // An umlaut is one column of the 46, a tab a blank.
  point.description = "\xC3\x84\t" + std::string(45, 'N');
  point.OutInfo = "a-word-far-too-long-for-its-columns";
  point.geoidHeight = "1";
  EXPECT_EQ(block(), golden(R"(
   -
   A NUMBER OF NINETEEN
                     Ä NNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNN
                                                                   ZC:  250.500
        LT: 45 30 15.50000   YC: 400123.457   Theta:a-word-far-too-long-for-its-columns
                                                                   HG:  250.500
        LG:-93 15 00.00000   XC:2500000.500
)"));
  point.description.pop_back();
  EXPECT_NE(block().find("NNNZC:  250.500\n"), std::string::npos);
  refusal = "The latitude of the point is outside the area served.";
  point.pointNumber = "101";
  EXPECT_EQ(block(), golden("\n   -\n   101               " + refusal + "\n"));
  EXPECT_NE(written(15).find("Page 2\n"), std::string::npos) << "a refused point is one of the fourteen";
}

}  // namespace
}  // namespace tovak::report
