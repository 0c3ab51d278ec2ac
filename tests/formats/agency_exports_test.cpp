#include "formats/agency/lmo_system_code.h"
#include "run/divided_counties.h"
#include "support/format_files.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::agency {
namespace {

using namespace tests;
using run::Icon;
using run::RunOutcome;

/// Request, "=", code, blank and what is filled in.
constexpr std::string_view kCounties = R"(
Anoka =6 C Anoka
Lake North Shore=38 N Lake - North Shore
Rivers =80 N
Rivers North=80 N Rivers - North
Rivers Central=81 C Rivers - Central
Rivers South=82 S Rivers - South
Hills =8 C Hills - Upper
Beyond West=103 S Beyond
Unknown =999 left over
)";

std::int16_t findCounty(const std::string& text, std::string& filled) {
  const std::size_t found = kCounties.find("\n" + text + "=");
  if (found == std::string_view::npos) return run::kUnknownCounty;
  std::string_view answer = kCounties.substr(found + text.size() + 2);
  const double code = text::leadingNumber(text::takeField(answer, ' '));
  filled = text::takeField(answer, '\n');
  return static_cast<std::int16_t>(code);
}

/// Latitude and longitude are northing and easting by 10000; every other system adds its code to the northing and ten
/// times its code to the easting, and half a unit when it is in metres.
void convertByCode(const ScriptedEngine::Point& point) {
  const double north = std::exchange(point.northing, 0), east = std::exchange(point.easting, 0);
  const double code = text::leadingNumber(point.target);
  const double half = point.target.ends_with('M') ? 0.5 : 0.0;
  point.outNorthing = code == 0 ? north / 10000 : north + code + half;
  point.outEasting = code == 0 ? -east / 10000 : east + 10 * code + half;
}

struct AgencyExports : testing::Test {
  AgencyExports() {
    engine.projectionFromText = findCounty;
    engine.arithmetic = [this](const ScriptedEngine::Point& point) {
      const auto failure = failures.find(point.target + '@' + row(point.northing));
      const std::int16_t error = failure == failures.end() ? std::int16_t{0} : failure->second;
      if (error < 1) convertByCode(point);
      return error;
    };
  }
  void choose(std::int16_t source, std::int16_t target) {
    settings.sourceFormat = source;
    settings.targetFormat = target;
    settings.target.fileName = folder.file("out");
  }
  std::string of(const std::string& lines) {
    settings.source.fileName = folder.write("in", lines);
    return exported();
  }
  std::string exported() {
    person.shown.clear();
    result = run::convert(settings, engine, formatTables(), person.audience());
    return contentsOf(folder.file("out"));
  }
  /// Exports the lines of a file under golden/: source line, ">", target line, in which "@" stands for the source line;
  /// without ">" the source line leaves nothing.
  void expectLines(const char* name) {
    const std::string text = contentsOf(TOVAK_GOLDEN_FOLDER "/" + std::string(name));
    std::string_view script = text;
    std::string in, out;
    while (!script.empty()) {
      std::string answer(text::takeField(script, '\n'));
      const std::size_t end = answer.find('>');
      const std::string line = answer.substr(0, end);
      in += line + '\n';
      if (end == std::string::npos) continue;
      answer.erase(0, end + 1);
      if (const std::size_t place = answer.find('@'); place != std::string::npos) answer.replace(place, 1, line);
      out += answer + '\n';
    }
    EXPECT_EQ(of(in), out);
  }
  /// The systems that the engine was given, each with the form, which no export gives.
  std::set<std::string> sources() const {
    std::set<std::string> texts;
    for (const auto& call : engine.calls) texts.insert(call.source + call.form);
    return texts;
  }
  /// Every tally and its first line.
  std::string fates() const {
    const run::RecordCounts& c = result.counts;
    std::string text = row(c.converted, recordsSkipped(c));
    for (const run::Tally& t : {c.refusedByEngine, c.refusedCounty, c.noPoint, c.withoutDelimiter, c.refusedAngle}) {
      text += "; " + row(t);
    }
    return text;
  }

  const TemporaryFolder folder;
  run::RunSettings settings;
  std::map<std::string, std::int16_t> failures;  ///< by target text and northing or latitude
  ScriptedEngine engine;
  ScriptedPerson person;
  run::RunResult result;
};

struct GeodeticsSpecial : AgencyExports {
  GeodeticsSpecial() { choose(run::source::GeodeticsSpecial, run::target::GeodeticsSpecial); }
  const std::string heading = "STATION NAME,COUNTY NAME,LATITUDE,LONGITUDE,XCOORD,YCOORD,COUNTY X,COUNTY Y,ORDER\n";
};

TEST_F(GeodeticsSpecial, WritesALineForEachStation) {
  failures = {{"3@45.00007", 7}, {"3@45.00008", 8}, {"3@45.00009", 9},  {"3@45.00005", 5}, {"6@45.00017", 7},
              {"6@45.00018", 8}, {"6@45.00019", 9}, {"6@45.00015", 10}, {"6@45.00016", -7}};
  expectLines("geodetics_special.txt");
  EXPECT_EQ(sources(), std::set<std::string>{"0"});
  EXPECT_EQ(person.shown.at(0).text, "Geodetics Special Output File Written");
  EXPECT_EQ(fates(), "4|12; 8|14; 4|10; 4|1; 2|6; 0|0");
}

TEST_F(GeodeticsSpecial, TakesTheUnitFromTheTargetsProjectionBox) {
  settings.accuracy = static_cast<text::Accuracy>(1);
  settings.target.projectionText = "263 m";
  EXPECT_EQ(of("4512345,9312345,A,Anoka,,,2\r\n"), heading + "A,Anoka,45.12345,93.12345,123.62,48.62,153.62,51.62,2\n");
}

TEST_F(GeodeticsSpecial, KeepsTheLinesBeforeANumberThatIsNone) {
  for (const std::string angles : {"45x,93", "45,", "450000093", ",", "9e999,9"}) {
    std::filesystem::remove(folder.file("out"));
    EXPECT_EQ(of("9000000,9300000,A,OUT OF STATE,,,2\n" + angles + ",OUT OF STATE\n4500000,9300000,C,Anoka,,,2"),
              heading + "A,OUT OF STATE,90.00000,93.00000,,,,,2\n");
    EXPECT_EQ(person.shown.at(0).text + person.shown.at(0).title, "Invalid latitude or longitudeGeodetics Special");
    EXPECT_TRUE(person.shown.at(0).detail.starts_with("line 2 of " + folder.file("in")));
  }
}

TEST_F(GeodeticsSpecial, TouchesNoTargetBeforeItsFirstStation) {
  const std::string endless(2 << 20, 'x');
  folder.write("out", "old");
  EXPECT_EQ(of("STATIONS 2014\n\n"), "old");
  EXPECT_EQ(result.outcome, RunOutcome::Finished);
  EXPECT_EQ(of("STATIONS\n" + endless), "old");
  EXPECT_EQ(result.MessageText, folder.file("in") + ": line 2 is longer than 1 MiB");
  EXPECT_EQ(of("45,93,A,OUT OF STATE\n"), "old") << "nothing was converted";
  EXPECT_EQ(person.shown.back().text, "No point was converted; " + folder.file("out") + " was left as it was.");
  std::filesystem::remove(folder.file("out"));
  EXPECT_EQ(of("45,93,A,OUT OF STATE\n" + endless), heading + "A,OUT OF STATE,.00045,.00093,,,,,\n");
}

struct LmoBatch : AgencyExports {
  LmoBatch() { choose(run::source::LmoBatch, run::target::LmoBatch); }
};

TEST_F(LmoBatch, AppendsItsColumnsToEachLine) {
  expectLines("lmo_columns.txt");
  EXPECT_EQ(sources(), (std::set<std::string>{"0", "103M", "104"}));
  EXPECT_EQ(person.shown.back().text + person.shown.back().title, "LMO Batch Output File WrittenFinished");
  EXPECT_EQ(fates(), "6|0; 0|0; 0|0; 3|1; 0|0; 0|0");
}

TEST_F(LmoBatch, SaysInTheLineWhatCouldNotBeComputed) {
  failures = {{"0@450007", 7}, {"0@450008", 8}, {"0@450009", 9}, {"0@450005", 10},
              {"6@450000", 8}, {"3@450000", 5}, {"1@450000", 7}, {"3@450001", 4}};
  settings.accuracy = static_cast<text::Accuracy>(3);
  expectLines("lmo_failures.txt");
  EXPECT_EQ(fates(), "0|16; 6|11; 7|1; 0|0; 0|0; 3|8");
}

TEST(LmoSystemCode, IsReadByItsParts) {
  std::string read;
  for (const char* const code :
       {"", "LL", "mLLcc27", "CCS", "27utm", "ccll", "UTMSPN", "MSPS27", "MCCC27", "CCLCCN", "SPC", "XM"}) {
    const LmoSystem system = readLmoSystem(code);
    read += row(system.code, system.zoneWord, system.namesCounty, system.metres) + ' ';
  }
  EXPECT_EQ(read,
            "-1||0|0 0||0|0 103||1|1 -1|South|1|0 104||0|0 0|North Shore|1|0 1||0|0 107||0|1 -1|Central|1|1 "
            "-1|North|1|0 3||0|0 999||0|0 ");
}

TEST(DividedCounties, HaveTheirZonesOnEachSideOfAParallel) {
  constexpr std::pair<std::int16_t, double> kLimits[] = {{8, 480112},  {16, 464815}, {22, 475300}, {39, 473000},
                                                         {49, 485900}, {80, 471500}, {80, 475000}, {6, 471500}};
  std::string zones;
  for (const auto& [county, limit] : kLimits) {
    const double degrees = text::unpackSeconds(limit).degrees;
    const auto zone = [county = county](double latitude) {
      return run::zoneAtLatitude(county, text::splitAngle(latitude));
    };
    zones += row(run::isDividedCounty(county), zone(-degrees), zone(degrees - 1e-5 / 3600), zone(degrees)) + ' ';
  }
  EXPECT_EQ(zones, "1|9|9|8 1|17|17|16 1|23|23|22 1|40|40|39 1|50|50|49 1|82|82|81 1|82|81|80 0|6|6|6 ");
}

TEST_F(AgencyExports, AreStoppedWithoutATrace) {
  for (const auto& [source, target] : {std::pair(run::source::GeodeticsSpecial, run::target::GeodeticsSpecial),
                                       std::pair(run::source::LmoBatch, run::target::LmoBatch)}) {
    choose(source, target);
    std::string lines;
    while (lines.size() < 200000) lines += "4560000,9323000,A,Alder,,,1\n";
    folder.write("out", "older");
    person.stopsAt = 0.5;
    EXPECT_EQ(of(lines), "older");
    EXPECT_GT(recordsRead(result.counts), 1000U) << "it was under way";
    EXPECT_TRUE(result.outcome == run::RunOutcome::Cancelled && result.target == run::TargetState::OlderKept);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"in", "out"}));
    EXPECT_TRUE(person.shown.empty());
  }
}

TEST_F(AgencyExports, RefuseWhatTheyCannotDo) {
  const std::string in = folder.write("in", "1,2,A,Anoka\n"), out = folder.write("out", "old");
  const std::string missing = folder.file("missing/file"), directory = folder.path().string();
  const std::string same = "Conflicting file names: Source file has same name as target file.";
  const std::tuple<std::int16_t, std::int16_t, std::string, std::string, std::string> cases[] = {
      {8, 11, in, out, "Invalid target: The target format must be Geodetics Special"},
      {10, 9, in, out, "Invalid target: The target format must be LMO Database Dump"},
      {9, 10, missing, out, "KRV Batch: KRV batch files cannot be converted by this version."},
      {8, 9, in, folder.file("./in"), same},
      {10, 11, in, in, same},
      {8, 9, missing, out, "File Error: " + missing + ": No such file or directory"},
      {10, 11, directory, out, "File Error: " + directory + ": Is a directory"},
      {10, 11, in, missing, "File Error: " + missing + ": No such file or directory"},
      {8, 9, in, "/dev/full", "File Error: /dev/full: No space left on device"}};
  for (const auto& [source, target, from, to, message] : cases) {
    choose(source, target);
    settings.source.fileName = from;
    settings.target.fileName = to;
    EXPECT_EQ(exported() + contentsOf(in), "old1,2,A,Anoka\n");
    EXPECT_EQ(result.outcome, RunOutcome::Stopped);
    EXPECT_EQ(person.shown[0].title + ": " + person.shown[0].text, message);
    EXPECT_TRUE(person.shown.size() == 1 && person.shown[0].icon == Icon::Exclamation);
  }
}

}  // namespace
}  // namespace tovak::formats::agency
