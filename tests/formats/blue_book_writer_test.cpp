#include "formats/survey/blue_book_writer.h"

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "support/allocation_counter.h"
#include "support/scripted_engine.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"

namespace tovak::formats {
namespace {

using run::PointRecord;

PointRecord samplePoint(double northing = 762920.1128, double easting = 668495.843) {
  PointRecord point;
  run::resetPoint(point);
  point.OutNorthLat = northing;
  point.OutEastLon = easting;
  point.pointNumber = "1";
  point.description = "ALDER BRIDGE";
  return point;
}

struct Target {
  std::int16_t code = 4;
  int accuracy = 0;
  bool metres = true;
};

/// What a writer puts into a file for a point, the given number of times.
std::string written(const PointRecord& point, const Target& target, int times = 1) {
  const tests::TemporaryFolder folder;
  run::RunSettings settings;
  settings.TargetProjectionCode = target.code;
  settings.target.metres = target.metres;
  settings.accuracy = target.accuracy;
  text::LineWriter lines;
  EXPECT_TRUE(lines.open(folder.file("out")));
  const auto writer = makeBlueBookWriter({.lines = lines, .settings = settings, .targetSystem = {}});
  EXPECT_TRUE(writer->begin());
  for (int i = 0; i < times; ++i) EXPECT_TRUE(writer->write(point));
  EXPECT_TRUE(writer->end() && lines.commit());
  return tests::contentsOf(folder.file("out"));
}

TEST(BlueBookWriter, WritesGridRecordsNorthingFirst) {
  const struct {
    double northing;
    double easting;
    Target target;
    const char* fields;  // columns 45 to 69
  } cases[] = {
      {762920.1128, 668495.843, {4, 0}, " 762920113  6684958432203"},
      {762920.1128, 668495.843, {3, 1}, " 76292011   66849584 2202"},
      {762920.1128, 668495.843, {2, 2}, " 7629201    6684958  2201"},
      {762920.1128, 668495.843, {105, 3}, " 762920     668496   2203"},
      {762920.1128, 668495.843, {4, 4}, " 762920     668500   2203"},
      {762920.1128, 668495.843, {4, 5}, " 762900     668500   2203"},
      {5425310.2654, 295723.4839, {1, 0}, "5425310265  2957234840015"},
      {5425310.2654, 295723.4839, {104, 0}, "5425310265  2957234842203"},
      {-0.5, 0.25, {4, 0}, "     -0500       02502203"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.fields);
    EXPECT_EQ(written(samplePoint(c.northing, c.easting), c.target),
              "000010*81*0001ALDER BRIDGE                  " + std::string(c.fields) + "      BQR23\n");
  }
}

TEST(BlueBookWriter, WritesGeographicRecords) {
  const struct {
    double latitude;
    double longitude;
    const char* fields;  // columns 45 to 69
  } cases[] = {
      {48.946947602, -95.790044250, "48564901137N095472415930W"},
      {45, -93, "45000000000N093000000000W"},
      {45.2, 5.00125, "45120000000N005000450000W"},
      {-0.5, 0, "00300000000N000000000000W"},
      // Rounds up into the degrees, not to 60 seconds.
      {44.9999999999, -92.9999999999, "45000000000N093000000000W"},
      // The hundreds of the degrees are not written.
      {64, -145.5, "64000000000N045300000000W"},
  };
  for (const std::int16_t code : {std::int16_t{0}, std::int16_t{103}}) {
    for (const auto& c : cases) {
      EXPECT_EQ(written(samplePoint(c.latitude, c.longitude), {.code = code, .accuracy = 5}),
                "000010*80*0001ALDER BRIDGE                  " + std::string(c.fields) + "      BQR23\n");
    }
  }
}

TEST(BlueBookWriter, WritesElevationsInMetres) {
  const struct {
    double elevation;
    int decimals;
    bool metres;
    const char* field;
  } cases[] = {
      {812.345, 0, true, " 81234"}, {812.355, 0, true, " 81236"},
      {812.35, 1, true, " 81235"},  {812.35, 2, true, " 8124 "},
      {812.35, 3, true, " 812  "},  {-12.35, 1, true, " -1235"},
      {-0.5, 1, true, "  -050"},    {0, 0, true, "      "},
      {-0.0, 1, true, "      "},    {0.004, 1, true, "   000"},
      {9999.99, 0, true, "999999"}, {-999.99, 0, true, "-99999"},
      {39.37, 1, false, "  1200"},  {3937, 3, false, "1200  "},
      {0, 1, false, "      "},      {812.35 * 39.37 / 12, 1, false, " 81235"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.field);
    PointRecord point = samplePoint(45, -93);
    point.Elevation = c.elevation;
    point.elevationDecimals = c.decimals;
    EXPECT_EQ(written(point, {.code = 0, .metres = c.metres}).substr(69, 6), c.field);
  }
}

TEST(BlueBookWriter, KeepsEveryTextInItsColumns) {
  const struct {
    const char* number;
    const char* name;
    const char* columns11To44;
  } cases[] = {
      {"7", "BM", "0007BM                            "},
      {"12345", "BM", "2345BM                            "},
      {"", "BM", "000 BM                            "},
      {"A", "A NAME OF MORE THAN THIRTY CHARACTERS", "000AA NAME OF MORE THAN THIRTY CHA"},
  };
  for (const auto& c : cases) {
    PointRecord point = samplePoint();
    point.pointNumber = c.number;
    point.description = c.name;
    point.classCode = "AMN12";
    EXPECT_EQ(written(point, {}),
              "000010*81*" + std::string(c.columns11To44) + " 762920113  6684958432203      AMN12\n");
  }
}

TEST(BlueBookWriter, CountsRecordsByTensInSixDigits) {
  const std::string record = written(samplePoint(), {});
  const std::string lines = written(samplePoint(), {}, 100001);
  ASSERT_EQ(lines.size(), record.size() * 100001);
  const struct {
    std::size_t index;
    const char* sequence;
  } cases[] = {{0, "000010"}, {1, "000020"}, {9, "000100"}, {99998, "999990"}, {99999, "000000"}, {100000, "000010"}};
  for (const auto& c : cases) EXPECT_EQ(lines.substr(c.index * record.size(), 10), c.sequence + std::string("*81*"));
}

TEST(BlueBookWriter, EndsTheLineBehindAFieldThatIsTooLong) {
  PointRecord point = samplePoint(16348260.123, 1640000.5);
  EXPECT_EQ(written(point, {}), "000010*81*0001ALDER BRIDGE                  16348260123\n" + std::string(54, ' ') +
                                    " 16400005002203      BQR23\n");
  point = samplePoint();
  point.Elevation = -1234.5;
  EXPECT_EQ(written(point, {}), "000010*81*0001ALDER BRIDGE                   762920113  6684958432203-123450\n" +
                                    std::string(75, ' ') + "BQR23\n");
}

/// Changes nothing, so that a round trip shows reader and writer alone.
class IdentityEngine final : public tests::ScriptedEngine {
 public:
  std::int16_t TovakVert(double& InNorthLat, double& InEastLon, double&, const std::string&, double& OutNorthLat,
                         double& OutEastLon, double&, const std::string&, std::string&, std::string_view) override {
    OutNorthLat = InNorthLat;
    OutEastLon = InEastLon;
    return 0;
  }
};

struct Converted {
  run::RunResult result;
  std::string target;
  std::size_t allocations = 0;
};

/// A whole run from Blue Book to Blue Book.
Converted converted(const std::string& source, std::int16_t code, bool metres = true) {
  const tests::TemporaryFolder folder;
  run::RunSettings settings;
  settings.sourceFormat = run::source::BlueBook;
  settings.targetFormat = run::target::BlueBook;
  settings.SourceProjectionCode = settings.TargetProjectionCode = code;
  settings.source.metres = settings.target.metres = metres;
  settings.source.fileName = folder.write("in", source);
  settings.target.fileName = folder.file("out");
  settings.latLongForm = text::AngleForm::DecimalDegrees;  // the layout's own form counts
  settings.BatchMode = 2;
  IdentityEngine engine;
  tests::ScriptedPerson person;
  const std::size_t before = tests::allocationCount();
  Converted converted;
  converted.result = run::convert(settings, engine, formatTables(), person);
  converted.allocations = tests::allocationCount() - before;
  const std::string target = tests::contentsOf(settings.target.fileName);
  converted.target = target.substr(target.find('\n') + 1);
  return converted;
}

constexpr const char* kGeographic =
    "000010*80*0001ALDER BRIDGE                  48564901137N095472415930W 91248BQR23\n"
    "000020*80*0002A NAME THAT FILLS ALL COLUMNS 45331457055N092315290520W  -50 AMN12\n"
    "000030*80*X003                              44000000000N090000000001W      BQR23\n";

TEST(BlueBook, GeographicRecordsAreTheirOwnInverse) {
  for (const bool metres : {true, false}) EXPECT_EQ(converted(kGeographic, 0, metres).target, kGeographic);
}

TEST(BlueBook, GridRecordsChangeNorthingAndEastingWithEveryRoundTrip) {
  const std::string eastingFirst = "000010*81*0001ALDER BRIDGE                   668495843  7629201132203 91248BQR23\n";
  const std::string northingFirst =
      "000010*81*0001ALDER BRIDGE                   762920113  6684958432203 91248BQR23\n";
  EXPECT_EQ(converted(eastingFirst, 4).target, northingFirst);
  EXPECT_EQ(converted(northingFirst, 4).target, eastingFirst);
}

TEST(BlueBook, KeepsThePointsInFrontOfAFaultyRecord) {
  std::string faulty = kGeographic;
  const std::size_t line = faulty.find('\n') + 1;
  const std::string rest = "000030*86*0002  0912X82\n";
  // The faulty height record belongs to the second station, which is not converted either.
  const Converted run = converted(faulty.insert(faulty.find("000030"), rest), 0);
  EXPECT_EQ(run.result.outcome, run::RunOutcome::Stopped);
  EXPECT_EQ(run.result.MessageText, "Invalid *86* Record Found");
  EXPECT_EQ(run.target, faulty.substr(0, line));
}

TEST(BlueBook, RefusesSixtyMinutes) {
  const Converted run =
      converted("000010*80*0001                              45600000000N093000000000W      BQR23\n", 0);
  EXPECT_EQ(run.target, "");
  EXPECT_EQ(run.result.counts.refusedAngle.count, 1U);
}

TEST(BlueBook, AllocatesNothingPerPoint) {
  const auto allocationsFor = [](int points) {
    std::string lines;
    for (int i = 0; i < points; ++i) {
      lines += kGeographic;
      lines += "000035*86*X003  0912482G12 88NGS    -27100    0885382    REMARK OF 17 COL    \n";
    }
    return converted(lines, 0).allocations;
  };
  allocationsFor(1);  // what is made once in the life of the program
  EXPECT_EQ(allocationsFor(2000), allocationsFor(10));
}

}  // namespace
}  // namespace tovak::formats
