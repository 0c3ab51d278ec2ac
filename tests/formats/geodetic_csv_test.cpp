// Map sheets of the geodetic database: how they are found, searched and read.
#include <filesystem>
#include <map>

#include "formats/database/geodetic_csv_reader.h"
#include "formats/database/map_sheets.h"
#include "formats/database/sheet_scan.h"
#include "support/format_files.h"

namespace tovak::formats::database {
namespace {

using tests::row;
using Values = std::map<int, std::string>;

const std::string kNorth = tests::sample("ALDR1.csv"), kSouth = tests::sample("ALDR2.csv");
const std::string kHead = kNorth.substr(0, kNorth.find('\n') + 1);

/// A row in the order of the headings, its values by their numbers.
std::string station(Values values, const std::string& zone = "", const std::string& name = "HILL") {
  std::string line = name;
  for (int i = 3; i <= 14; ++i) line += "," + values[i];
  return line + ", " + zone + " ,G7," + values[1] + "," + values[2] + "\n";
}

std::string point(const run::PointRecord& p) {
  return row(p.pointNumber, p.description, p.InNorthLat, p.InEastLon, p.Elevation, p.elevationAccuracy, p.sourceLine);
}

TEST(MapSheets, DifferInTheCharacterInFrontOfTheEnding) {
  const tests::TemporaryFolder folder;
  for (const char* name : {"ALDR4.csv", "d.csv"}) std::filesystem::create_directory(folder.path() / name);
  for (const char* name : {"ALDR2.csv", "aldr1.CSV", "ALDR3.csv.bak", "ALDR12.csv", "ALDR.csv", "ALDR\xC3\xA4.csv",
                           "CEDR7.csv", "d.csv/OAKH1.csv", "d.csv/OAKH2.csv", "x.csv.csv", "y.csv.csv", "ATE8.csv"})
    folder.write(name, "");
  for (const char sheet : std::string("1234567"))
    for (const std::string county : {"SEVN", "ATE"}) folder.write(county + sheet + ".csv", "");
  const tests::Case cases[] = {{"ALDR2.csv", "aldr1.CSV ALDR2.csv ALDR\xC3\xA4.csv"},
                               {"ALDR\xC3\xA4.csv", "aldr1.CSV ALDR2.csv ALDR\xC3\xA4.csv"},
                               {"CEDR8.csv", "CEDR7.csv"},
                               {"ALDR3.csv.bak", "ALDR3.csv.bak"},
                               {"d.csv/OAKH1.csv", "d.csv/OAKH1.csv"},
                               {"x.csv.csv", "x.csv.csv y.csv.csv"},
                               {"SEVN4.csv", "SEVN1.csv SEVN2.csv SEVN3.csv SEVN4.csv SEVN5.csv SEVN6.csv SEVN7.csv"},
                               {"ATE1.csv", "There are more than seven map sheets for this county. CSV Input Error"},
                               {"gone/A1.csv", folder.file("gone") + ": No such file or directory CSV Input Error"}};
  tests::expectEach(cases, [&](const std::string& name) {
    const text::Result<MapSheetList> search = findMapSheets(folder.file(name));
    if (!search) return search.error + " " + sheetMessage(search.error).title;
    std::string found;
    for (const std::string& sheet : *search) found += " " + sheet.substr(folder.file("").size());
    return found.empty() ? found : found.substr(1);
  });
}

TEST(MapSheets, AreRecognisedByTheListOfCodes) {
  const tests::TemporaryFolder folder;
  const std::string codes = loadMapSheetCodes(folder.write("list", "ALDR1~ALDR2\r\n\n OAKH_XA1 \nLAKE1~csv"));
  EXPECT_EQ(codes, "ALDR1~ALDR2~OAKH_XA1~LAKE1~csv");
  for (const char* name : {"/in/ALDR1.csv", "oakh_xa1.CSV", "csv.csv", "AKE.csv"}) EXPECT_TRUE(isMapSheet(name, codes));
  for (const char* name : {"ALDR1.txt", "ALDR3.csv", "ALDR1", ".csv", ""}) EXPECT_FALSE(isMapSheet(name, codes));
  EXPECT_EQ(loadMapSheetCodes(folder.file("none")) + loadMapSheetCodes(folder.file("")), "");
}

TEST(SheetScan, NotesDataSetsHeightsAndZones) {
  const tests::TemporaryFolder folder;
  const auto scanned = [&](const std::string& second) {
    const SheetScan scan = scanSheets({folder.write("1.csv", kHead), folder.write("2.csv", second)});
    std::string found = scan.error;
    for (std::size_t i = 0; i < scan.present.size(); ++i) found += scan.present[i] ? std::to_string(i) + " " : "";
    for (std::size_t i = 0; i < scan.zones.size(); ++i) found += scan.zones[i] ? "NCSL"[i] : '.';
    return found + scan.countyName;
  };
  const tests::Case cases[] = {
      {station({{1, "45.1"}, {2, "-93.2"}, {3, "45"}, {6, "93"}, {11, "45"}, {12, "93"}, {13, "0"}}), "...."},
      {station({{1, "45.1"}, {2, "93.2"}, {13, "x9"}, {14, " .5ft"}}), "1 14 ...."},
      {station({{3, "1"}, {4, "1"}, {5, "1"}, {6, "1"}, {7, "1"}, {8, "1"}, {9, "1"}, {10, "1"}, {13, "1"}}),
       "3 5 7 9 13 ...."},
      {kHead + "\r\n" + station({{13, "1"}}, "Elm", "NAMELESS HILL") + station({}), "13 ....Elm"},
      {station({{13, "1"}}, "Elm - South", "NAMELESS HILL"), "...."},
      {station({}, "Elm - north") + station({}, "Elm - CENTRAL"), "NC..Elm"},
      {station({}, "Elm - South") + station({}, "Lake - Lake (North Shore)"), "..SLLake"},
      {station({}, "Elm -South") + station({}, "Elm - North - South"), "..S.Elm"},
      {"", "...."}};
  tests::expectEach(cases, scanned);
}

run::RunSettings settingsOf(std::int16_t horizontal, std::int16_t vertical = 0) {
  run::RunSettings settings = tests::settingsFor(0);
  settings.options.geodeticCsv.horizontal = horizontal;
  settings.options.geodeticCsv.vertical = vertical;
  return settings;
}

TEST(GeodeticCsv, ReadsAllSheetsAsOneStream) {
  const tests::TemporaryFolder folder;
  run::RunSettings settings = settingsOf(1, 14);
  // Other columns than their own places, which some other field would take.
  const std::string far(17, ',');
  settings.options.geodeticCsv.sheets = {
      folder.write("1.csv", far + "GSID,NGVD29,NAD83(11)LON,NAD83(11)LAT,NAME\n" + far + "G7,812.5,93.15,45.3,HALL"),
      folder.write("2.csv", ""),
      folder.write("3.csv", "\n" + far + "G8,,0,45.4,NO\r\n\r\n" + far + "G9,,93.3,45.5,SURNAMES\n" + far +
                                "G9,-1,9.3 west, 4.3 ,,,, ")};
  const tests::ReadFile file = tests::readFile(makeGeodeticCsvReader, "", settings, point);
  EXPECT_EQ(file.points, "G7|HALL|45.5|-93.25|812.5|0|2 G9||4.5|-9.5|-1|0|5");
  EXPECT_EQ(row(file.counts.noPoint) + " " + row(file.counts.zeroCoordinate), "2|1 1|2");

  // Without headings the fields are in their places; a field without its heading is there too, whatever that holds.
  settings = settingsOf(11, 13);
  const std::string reference = station({{11, "45.3"}, {12, "93.15"}, {13, "7"}});
  for (const std::string& head : {std::string(), tests::with(kHead, kHead.find("REF_LAT") + 1, "REMARKS")})
    EXPECT_EQ(tests::readFile(makeGeodeticCsvReader, head + reference, settings, point).points.substr(0, 24),
              "G7|HILL|45.5|-93.25|7|0|")
        << head;
  // Of two fields in one column the first takes it, and columns behind the last heading do not count.
  const char* const few = "NAME,NAD83(11)LAT,NAD83(11)LON\nA,45,93,9,9\n";
  EXPECT_EQ(tests::readFile(makeGeodeticCsvReader, few, settingsOf(1), point).points, "");
  EXPECT_EQ(tests::readFile(makeGeodeticCsvReader, few, settingsOf(3), point).points, "|A|45|-93|0|0|2");
}

TEST(GeodeticCsv, KeepsToTheZoneWhereTheTargetLiesInOne) {
  const Values values = {{1, "45"}, {2, "93"}};
  const std::string rows = station(values, "Elm - North", "1") + station(values, "elm - north", "2") +
                           station(values, "Elm - South", "3") + station(values, "Elm", "4");
  const std::tuple<std::int16_t, std::int16_t, const char*, std::string> cases[] = {
      {run::target::Sdms, 263, " - North", "1 2 3 4"},
      {run::target::Sdms, 264, " - North", "1 2"},
      {run::target::TrimbleWaypoints, 4, " - South", "3"},
      {run::target::GeopakNe, 4, "", "4"}};
  for (const auto& [format, code, suffix, names] : cases) {
    run::RunSettings settings = settingsOf(1);
    settings.targetFormat = format;
    settings.TargetProjectionCode = code;
    settings.options.geodeticCsv.countyName = "Elm";
    settings.options.geodeticCsv.zoneSuffix = suffix;
    const auto name = [](const run::PointRecord& p) { return p.description; };
    EXPECT_EQ(tests::readFile(makeGeodeticCsvReader, rows, settings, name).points, names) << format << suffix;
  }
}

TEST(GeodeticCsv, ConvertsTheSamplesAndNamesTheSheetThatFails) {
  const tests::TemporaryFolder folder;
  const std::string first = folder.write("1.csv", kNorth);
  const std::string missing = folder.file("2.csv"), unreadable = folder.file("3.csv");
  std::filesystem::create_directory(unreadable);
  const std::string tooLong = folder.write("4.csv", kHead + std::string(text::LineReader::kMaxLineLength + 1, '9'));
  const std::string north =
      "472717.46271,-941916.67184,JUNCTION NORTH,10110,1429.867,,,\n"
      "484344.30208,-951550.59380,GRANARY,10107,748.216,,,\n";
  const std::string south =
      "454848.99666,-943110.05550,FERRY LANDING,10106,1102.947,,,\n443520.18967,-942317.39225,DEPOT YARD,10104,,,,\n";
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {folder.write("5.csv", kSouth), north + south, ""},
      {missing, "(no file)", missing + ": No such file or directory"},
      {unreadable, "(no file)", unreadable + ": Is a directory"},
      {tooLong, north, tooLong + ": line 2 is longer than 1 MiB"}};
  for (const auto& [second, points, message] : cases) {
    tests::Conversion run(run::source::GeodeticCsv, run::target::CommaDelimited, 0);
    run.settings.options.geodeticCsv = settingsOf(1, 13).options.geodeticCsv;
    run.settings.options.geodeticCsv.sheets = {first, second};
    EXPECT_EQ(run.of(""), points);
    EXPECT_EQ(run.result.MessageText, message);
  }
}

TEST(GeodeticCsv, SurvivesDamage) {
  tests::expectToSurviveDamage(makeGeodeticCsvReader, kNorth + kSouth, settingsOf(5, 13));
}

}  // namespace
}  // namespace tovak::formats::database
