#include "formats/gps/coords_log_reader.h"
#include "formats/gps/delorme_writer.h"
#include "formats/gps/maptech_writer.h"
#include "formats/gps/trimble_waypoint_writer.h"
#include "support/format_files.h"
#include "support/golden_rows.h"

namespace tovak::formats::gps {
namespace {

using namespace tests;
using run::PointRecord;

const Show fields = [](const PointRecord& p) {
  return row(p.pointNumber, p.description, p.InNorthLat, p.InEastLon, p.Elevation, p.elevationAccuracy,
             p.ellipsoidHeight, p.geoidHeight, p.sourceLine);
};

const std::string kHeadings = "POINT COORDINATES\n-----------------\n";

/// A value in columns 47 and on, below what stands before.
std::string value(std::string line, std::string_view text) {
  line.resize(46, ' ');
  return line.append(text) + '\n';
}

ReadFile reading(const std::string& points, Show show = fields, std::int16_t code = 4,
                 MakeReader make = makeCoordsLogReader) {
  return readFile(make, kHeadings + points, settingsFor(code), show);
}

TEST(CoordsLog, ChecksTheHeaderAgainstTheSourceProjection) {
  for (const auto& c : goldenRows("coords_headers.txt")) {
    const run::Message complaint = {"This Trimble Coords.log file " + c[2] + ".  Please correct this.",
                                    "Invalid Trimble Coords.log file", run::Icon::Exclamation};
    const std::string file = c[1] + (c[2] == "does not contain valid coordinates" ? "" : kHeadings);
    const auto code = static_cast<std::int16_t>(std::stoi(c[0]));
    EXPECT_EQ(readFile(makeCoordsLogReader, file, settingsFor(code), fields).message,
              c[2] == "none" ? run::Message() : complaint)
        << c[1];
  }
}

TEST(CoordsLog, TakesABlockOfLinesAsAPoint) {
  const std::string grid = value("Y=", "1,500.25") + value("X=", " 2000 ");
  const Case cases[] = {
      {" \n1234  HILL \r\n" + value("ELL HT=", "-27.10 m") + grid + value("ORTHO HT=", " 81.5"),
       "1234|HILL|1500.25|2000|81.5|2|-27.10|0|4"},
      {" 7\n" + value("remark", "17") + grid + value("GEOID HT=", "none"), "7||1500.25|2000|0|0|0|0|3"},
      // The first tag of a line counts, and the last line of a tag.
      {"1\n" + grid + value("X= Y=", "3") + value("ORTHO HT=", "1") + value("GEOID HT= ORTHO HT=", "2"),
       "1||3|2000|2|3|0|0|3"},
      {"1\n" + value("ELL HT=", std::string(17, '1') + "9") + value("X=", "12345678901.345x"),
       "1||0|12345678901.345|0|0|11111111111111111|0|3"}};
  expectEach(cases, [](const std::string& block) { return reading(block + "\n").points; });
  const Case angles[] = {{"45d 12m 34.5678\"", "45.2096021666667"}, {"45   5  4.5", "45.0845833333333"},
                         {"45  5    4.5", "45.0845833333333"},      {"45- 12- 34.56789712", "45.2096021936111"},
                         {"45  12", "0.753333333333333"},           {"", "0"}};
  const Show both = [](const PointRecord& p) { return p.InNorthLat == -p.InEastLon ? row(p.InNorthLat) : "differ"; };
  expectEach(angles, [&](const std::string& text) {
    return reading("1\n" + value("LAT=", text) + value("LON=", text) + "\n", both, 103).points;
  });
  const Show name = [](const PointRecord& p) { return p.pointNumber + '|' + p.description; };
  expectRows("coords_names.txt", [&](const std::string& line) {
    return reading(line + "\n\n", name, 4, makeCoordsLogNumberInDescriptionReader).points;
  });
}

TEST(CoordsLog, LosesAPointThatIsCutOff) {
  const std::string bytes = sample("coords_south.log");
  std::string points;
  for (std::size_t length = bytes.find("0105"); length <= bytes.size(); ++length) {
    points = readFile(makeCoordsLogReader, bytes.substr(0, length), settingsFor(4), number).points;
    EXPECT_TRUE(std::string_view("0101 0105 0106").starts_with(points)) << length;
  }
  EXPECT_EQ(points, "0101 0105 0106");
  const ReadFile cut = reading("1\n\n2\n" + value("Y=", "no number"));
  EXPECT_EQ(cut.points + ' ' + row(cut.counts.noPoint), "1||0|0|0|0|0|0|3 1|5");
  for (const run::RunSettings& settings : {settingsFor(0), settingsFor(4)}) {
    expectToSurviveDamage(makeCoordsLogNumberInDescriptionReader,
                          kHeadings + "\n\n" + bytes + sample("coords_geographic.log"), settings);
  }
}

TEST(CoordsLog, StopsAtACoordinateThatIsNoNumber) {
  Conversion run(run::source::CoordsLog, run::target::TrimbleWaypoints);
  for (const char* text : {"", "12x", "0,125", "1 2"}) {
    const std::string faulty = "2\n" + value("X=", "1") + value("Y=", text) + "\n3\n\n";
    EXPECT_EQ(run.of(kHeadings + "1\n\n" + faulty), "0.000,0.000,1000,\"1\"\n");
    EXPECT_EQ(run.result.MessageText,
              "Invalid northing or easting in the Trimble Coords.log file.\nline 7 of " + run.settings.source.fileName);
    EXPECT_EQ(run.result.outcome, run::RunOutcome::Stopped);
  }
}

TEST(GpsWriters, WriteTheBytesOfAPoint) {
  PointRecord plain = pointAt(45.20960219166667, -93.00000004, 0.0004);
  plain.pointNumber = "7";
  PointRecord full = pointAt(45.5, -93.25);
  full.pointNumber = " 1,2 ";
  full.description = " A \"B\", north side ";
  full.comment = ",\"";
  run::RunSettings set = settingsFor(0, true);
  set.source.metres = false;
  set.options.delorme.symbol = "A, B";
  set.options.maptech.color = "c0c0c0";
  set.options.maptech.symbol = 0;
  const std::tuple<MakeWriter, PointRecord, run::RunSettings, const char*> cases[] = {
      {makeTrimbleWaypointWriter, plain, settingsFor(4, false, 1), "-93.00,45.21,0.00,\"7\"\n"},
      {makeTrimbleWaypointWriter, full, settingsFor(4, false, 4), "-90,50,1000,\" 1,2 \"\n"},
      {makeTrimbleWaypointWriter, plain, settingsFor(103, true, 5), "-93.0000000,45.2096022,0,\"7\"\n"},
      {makeTrimbleWaypointWriter, full, set, "-93.2500000,45.5000000,300,\" 1,2 \"\n"},
      {makeDelormeWriter, plain, settingsFor(0), "Begin Symbol\n45.2096022,-93.0000000,7,CIRCLE\nEnd\n"},
      {makeDelormeWriter, full, set, "Begin Symbol\n45.5000000,-93.2500000,A \"B\"  north side,A  B\nEnd\n"},
      {makeMaptechWriter, plain, settingsFor(0), "45.2096022, -93.0000000, \"\", \"7\", \"\", ff, 17\n"},
      {makeMaptechWriter, full, set, "45.5000000, -93.2500000, \"A B  north side\", \"1 2\", \" \", c0c0c0, 0\n"}};
  for (const auto& [make, point, settings, bytes] : cases) EXPECT_EQ(written(make, point, settings), bytes);
}

TEST(TrimbleWaypoints, NameAPointByTheFirstFieldThatHoldsText) {
  // The preferred field, number, description and station; then the name.
  for (const char* texts : {"PN;1;D;S;1", "PD;1;D;S;D", "ST;1;D;S;S", "ST;1;D;;1", "ST;;D;;D", "PD;1;;S;1", "PN;;;S;S",
                            "PD;1;  ;S;1", "ST; ;  ;S;S", "PN; ;D;;D", "PD;;;;", "PD;1;TWELVE CHARS;;TWELVE CHAR",
                            "PD;;\"TWELVE CHARS\";;TWELVE CHAR", "PD;;A \"B\";;A \"B", "PD;1;\";S;",
                            "PD;1;HIGHWAY \xC3\x84\xC3\x96\xC3\x9C\xC3\x9F;;HIGHWAY \xC3\x84\xC3\x96\xC3\x9C"}) {
    run::RunSettings settings = settingsFor(4);
    PointRecord point = pointAt(1, 2);
    std::string name;
    std::istringstream in(texts);
    for (std::string* field :
         {&settings.options.waypoints.name, &point.pointNumber, &point.description, &point.station, &name}) {
      std::getline(in, *field, ';');
    }
    EXPECT_EQ(written(makeTrimbleWaypointWriter, point, settings), "2.000,1.000,1000,\"" + name + "\"\n") << texts;
  }
}

TEST(GpsFormats, ReadBackWhatTheyWrite) {
  constexpr const char* kPoints = "45.209602191667,-93.123456789,\"BM\",A1\n0.00000006,-93,,\n47.9999999996,-90,X,\n";
  const std::tuple<std::int16_t, std::int16_t, std::string> cases[] = {
      {run::target::Maptech, run::source::Maptech, ",,,, ff, 17\n"},
      {run::target::WayPointsPlus, run::source::WayPointsPlus, ",,,,\n"}};
  for (const auto& [target, source, rest] : cases) {
    Conversion there(run::source::CommaDelimited, target, 0);
    there.settings.latLongForm = text::AngleForm::DecimalDegrees;
    Conversion back(source, run::target::CommaDelimited, 0);
    back.settings.targetDelimited.latLongFormat = 3;
    EXPECT_EQ(back.of(there.of(kPoints)), "45.2096022,-93.1234568,BM,A1" + rest + "0.0000001,-93.0000000,,1" + rest +
                                              "48.0000000,-90.0000000,X,2" + rest);
  }
}

}  // namespace
}  // namespace tovak::formats::gps
