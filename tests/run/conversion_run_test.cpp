#include "run/conversion_run.h"

#include <array>

#include <gtest/gtest.h>

#include "run/format_index.h"
#include "run/keyboard_reader.h"
#include "support/scripted_engine.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"
#include "text/number.h"

namespace tovak::run {
namespace {

using tests::contentsOf;
using tests::ScriptedEngine;
using tests::ScriptedPerson;
using Names = std::vector<std::string>;

/// A small format of its own: "northing easting number" on a line; other lines are orders to the reader.
class LineReaderFormat final : public PointReader {
 public:
  explicit LineReaderFormat(const SourceContext& context) : context_(context) {}

  bool check() override {
    std::string_view line;
    if (context_.lines.next(line)) return true;
    context_.message = {"nothing in it", "Invalid file", Icon::Exclamation};
    return false;
  }

  ReadState read(PointRecord& point) override {
    std::string_view line;
    if (!context_.lines.next(line)) return ReadState::End;
    context_.message = {std::string(line), "Reader", Icon::Exclamation};
    if (line == "tab") return ReadState::EndedEarly;
    if (line == "broken") return ReadState::Stopped;
    const text::LeadingNumber northing = text::parseLeadingNumber(line);
    const text::LeadingNumber easting = text::parseLeadingNumber(line.substr(northing.length));
    point.InNorthLat = northing.value;
    point.InEastLon = easting.value;
    point.pointNumber = line.substr(std::min(line.size(), northing.length + easting.length + 1));
    point.sourceLine = context_.lines.lineNumber();
    return ReadState::Point;
  }

 private:
  SourceContext context_;
};

class LineWriterFormat final : public PointWriter {
 public:
  explicit LineWriterFormat(const TargetContext& context) : context_(context) {}

  bool begin() override { return context_.lines.writeLine("begin"); }
  bool write(const PointRecord& point) override {
    std::string line = point.pointNumber;
    for (const double value : {point.OutNorthLat, point.OutEastLon, point.Elevation}) {
      text::appendFixed(line += ' ', value, 2);
    }
    return context_.lines.writeLine(line);
  }
  bool end() override { return context_.lines.writeLine("end"); }

 private:
  TargetContext context_;
};

std::unique_ptr<PointReader> makeReader(const SourceContext& context) {
  return std::make_unique<LineReaderFormat>(context);
}
std::unique_ptr<PointWriter> makeWriter(const TargetContext& context) {
  return std::make_unique<LineWriterFormat>(context);
}
void forceDecimalDegrees(RunSettings& settings) {
  settings.latLongForm = text::AngleForm::DecimalDegrees;
  settings.sourceDelimited.fieldCodes = " 0~";
}

/// The positions that the run itself knows by name are kept.
constexpr std::array<SourceFormat, 14> kSources = {{
    {.name = "keyboard", .kind = SourceKind::Keyboard, .makeReader = makeKeyboardReader},
    {.name = "lines", .makeReader = makeReader},
    {.name = "without reader"},
    {.name = "packed", .makeReader = makeReader, .packedAngles = true},
    {.name = "forcing", .makeReader = makeReader, .prepare = forceDecimalDegrees},
    {},
    {},
    {},
    {.name = "agency", .kind = SourceKind::AgencyRun},
    {},
    {},
    {},
    {},
    {.name = "database", .makeReader = makeReader},
}};
constexpr std::int16_t kPacked = 3;
constexpr std::int16_t kForcing = 4;

constexpr std::array<TargetFormat, 16> kTargets = {{
    {.name = "screen", .kind = TargetKind::Screen},
    {.name = "lines", .makeWriter = makeWriter},
    {.name = "without writer"},
    {},
    {},
    {.name = "waypoints", .makeWriter = makeWriter, .options = TargetOptions::TrimbleWaypoints},
    {},
    {},
    {},
    {},
    {},
    {},
    {},
    {.name = "text files", .makeWriter = makeWriter, .fileNameEnding = ".txt"},
    {.name = "closing", .makeWriter = makeWriter, .closingLine = "$ END"},
    {},
}};

constexpr const char* kHead = "$Tovak#3$ NAD83  (Feet)\nbegin\n";

class ConversionRun : public testing::Test {
 protected:
  ConversionRun() {
    settings.sourceFormat = source::CommaDelimited;
    settings.targetFormat = target::CommaDelimited;
    settings.SourceProjectionCode = 2;
    settings.TargetProjectionCode = 3;
    settings.source.projectionText = "2";
    settings.target.projectionText = "3";
    settings.target.fileName = folder.write("out", "old");
  }

  RunResult run(std::string_view points) {
    settings.source.fileName = folder.write("in", "head\n" + std::string(points));
    return convert(settings, engine, {.sources = kSources, .targets = kTargets}, person);
  }

  RunResult runBatch(std::string_view points) {
    settings.BatchMode = 2;
    return run(points);
  }

  std::string target() const { return contentsOf(settings.target.fileName); }

  const tests::TemporaryFolder folder;
  RunSettings settings;
  ScriptedEngine engine;
  ScriptedPerson person;
};

TEST_F(ConversionRun, CarriesEachPointFromReaderThroughEngineToWriter) {
  const RunResult result = run("10 20 A\n30 40 B\n");
  EXPECT_EQ(result.outcome, RunOutcome::Finished);
  EXPECT_EQ(result.counts.converted, 2U);
  EXPECT_EQ(result.MessageText, "");
  EXPECT_EQ(target(), std::string(kHead) + "A 11.00 22.00 3.00\nB 31.00 42.00 3.00\nend\n");
  EXPECT_EQ(person.shown, (std::vector<Message>{{"Output File Written", "Finished", Icon::Information}}));
  EXPECT_EQ(engine.calls.front().source, "2");
  EXPECT_EQ(engine.calls.front().target, "3");
  EXPECT_EQ(folder.names(), (Names{"in", "out"}));
}

TEST_F(ConversionRun, SaysNothingInBatchMode) {
  engine.refusals = {{30, 8}};
  const RunResult result = runBatch("10 20 A\n30 40 B\n50 60 C\n");
  EXPECT_EQ(result.outcome, RunOutcome::Finished);
  EXPECT_EQ(result.counts.converted, 2U);
  EXPECT_EQ(result.counts.refusedByEngine.count, 1U);
  EXPECT_EQ(result.counts.firstSkippedLine, 3U);
  EXPECT_EQ(result.counts.firstSkipReason, "refused with 8");
  EXPECT_TRUE(person.shown.empty());
}

TEST_F(ConversionRun, ShowsTheEnginesTextAndGoesOn) {
  engine.refusals = {{10, 7}, {30, -1}};
  const RunResult result = run("10 20 A\n30 40 B\n50 60 C\n");
  EXPECT_EQ(person.shown.front(), (Message{"refused with 7", "TovakX Conversion Error", Icon::None}));
  EXPECT_EQ(person.shown.size(), 2U);
  EXPECT_EQ(result.counts.converted, 2U);
}

TEST_F(ConversionRun, NumbersPointsThatHaveNoNumber) {
  run("1 1 \n2 2 X\n3 3 \n");
  EXPECT_EQ(target(), std::string(kHead) + "1 2.00 3.00 3.00\nX 3.00 4.00 3.00\n2 4.00 5.00 3.00\nend\n");
  EXPECT_EQ(settings.NextPointNumber, 3);
  settings.allowBlankPointNumbers = true;
  run("1 1 \n");
  EXPECT_EQ(target(), std::string(kHead) + " 2.00 3.00 3.00\nend\n");
}

TEST_F(ConversionRun, BringsAnglesToDecimalDegreesWestNegative) {
  const struct {
    std::int16_t sourceFormat;
    text::AngleForm form;
    std::int16_t code;
    const char* line;
    double latitude;
    double longitude;
    const char* told;
  } cases[] = {
      {source::CommaDelimited, text::AngleForm::DecimalDegrees, 0, "45.5 93.25 A", 45.5, -93.25, "D"},
      {source::CommaDelimited, text::AngleForm::DecimalDegrees, 103, "45.5 -93.25 A", 45.5, -93.25, "D"},
      {source::CommaDelimited, text::AngleForm::DegreesDecimalMinutes, 0, "4530 9315 A", 45.5, -93.25, "S"},
      {source::CommaDelimited, text::AngleForm::DegreesMinutesSeconds, 0, "453000 93.15 A", 45.5, -93.25, "S"},
      {kPacked, text::AngleForm::DecimalDegrees, 0, "453000 931500 A", 45.5, -93.25, "D"},
      {kForcing, text::AngleForm::DegreesMinutesSeconds, 0, "45.5 93.25 A", 45.5, -93.25, "D"},
      // Northings and eastings keep their value and sign.
      {source::CommaDelimited, text::AngleForm::DegreesMinutesSeconds, 104, "4599 93 A", 4599, 93, "S"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    engine.calls.clear();
    settings.sourceFormat = c.sourceFormat;
    settings.latLongForm = c.form;
    settings.SourceProjectionCode = c.code;
    run(c.line);
    ASSERT_EQ(engine.calls.size(), 1U);
    EXPECT_DOUBLE_EQ(engine.calls[0].northing, c.latitude);
    EXPECT_DOUBLE_EQ(engine.calls[0].easting, c.longitude);
    EXPECT_EQ(engine.calls[0].form, c.told);
  }
}

TEST_F(ConversionRun, SkipsAnglesOf60MinutesLikePointsTheEngineRefuses) {
  settings.SourceProjectionCode = 0;
  const RunResult result = run("456000 930000 A\n450000 93.0060 B\n450000 930000 C\n");
  EXPECT_EQ(result.counts.refusedAngle.count, 2U);
  EXPECT_EQ(result.counts.firstSkippedLine, 2U);
  EXPECT_EQ(result.counts.converted, 1U);
  EXPECT_EQ(person.shown[0].title, "TovakX Conversion Error");
}

TEST_F(ConversionRun, GivesBackTheFormatsThatBuiltInOnesReplaced) {
  settings.sourceFormat = kForcing;
  settings.sourceDelimited.fieldCodes = " 3~ 0~ 1~";
  run("1 1 A\n");
  EXPECT_EQ(settings.sourceDelimited.fieldCodes, " 3~ 0~ 1~");
}

TEST_F(ConversionRun, RefusesBeforeAnythingIsTouched) {
  const struct {
    std::int16_t sourceFormat;
    std::int16_t targetFormat;
    const char* text;
    const char* title;
  } cases[] = {
      {2, target::CommaDelimited, "This format is not available yet.", "Tovak"},
      {source::CommaDelimited, 2, "This format is not available yet.", "Tovak"},
      {source::GeodeticsSpecial, target::GeodeticsSpecial, "This format is not available yet.", "Tovak"},
      {source::GeodeticCsv, target::CommaDelimited, "You must select a horizontal reference option.",
       "CSV Input Error"},
      {source::CommaDelimited, target::ScreenOnly, "Reports are Disabled", "Warning"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    person.shown.clear();
    settings.sourceFormat = c.sourceFormat;
    settings.targetFormat = c.targetFormat;
    const RunResult result = run("1 1 A\n");
    EXPECT_EQ(result.outcome, RunOutcome::Stopped);
    EXPECT_EQ(result.MessageText, c.text);
    ASSERT_EQ(person.shown.size(), 1U);
    EXPECT_EQ(person.shown[0].title, c.title);
    EXPECT_EQ(target(), "old");
  }
}

TEST_F(ConversionRun, AsksForTheZoneOfADatabaseThatHasZones) {
  settings.sourceFormat = source::GeodeticCsv;
  settings.geodeticCsv = {.horizontalChosen = true, .zonesOffered = true, .zoneSuffix = {}};
  run("");
  EXPECT_EQ(person.shown.back(),
            (Message{"You must select a county zone.", "CSV Input Error", Icon::Exclamation, "lstCsvZone"}));
  settings.geodeticCsv.zoneSuffix = " - North";
  settings.SourceProjectionCode = 103;
  settings.source.metres = true;
  run("450000 930000 A");
  EXPECT_EQ(engine.calls.back().source, "103");
}

TEST_F(ConversionRun, RefusesAgencyRunsOntoTheirOwnSource) {
  settings.sourceFormat = source::GeodeticsSpecial;
  settings.targetFormat = target::GeodeticsSpecial;
  settings.target.fileName = folder.file("./in");
  EXPECT_EQ(run("1").MessageText, "Source file has same name as target file.");
}

TEST_F(ConversionRun, KeepsTheOldTargetWhenTheSourceIsOfNoUse) {
  const struct {
    const char* text;
    bool exists;
  } cases[] = {{": No such file or directory", false}, {"nothing in it", true}};
  for (const auto& c : cases) {
    settings.source.fileName = folder.file("empty");
    if (c.exists) folder.write("empty", "");
    const RunResult result = convert(settings, engine, {.sources = kSources, .targets = kTargets}, person);
    EXPECT_EQ(result.outcome, RunOutcome::Stopped);
    EXPECT_EQ(result.MessageText, (c.exists ? "" : settings.source.fileName) + c.text);
    EXPECT_EQ(target(), "old");
  }
}

TEST_F(ConversionRun, KeepsThePointsSoFarWhenAMessageStopsIt) {
  const struct {
    std::string points;
    RunOutcome outcome;
    std::string text;
  } cases[] = {
      {"1 1 A\nbroken\n2 2 B\n", RunOutcome::Stopped, "broken"},
      {"1 1 A\n" + std::string(2 << 20, 'x') + "\n2 2 B\n", RunOutcome::Stopped,
       folder.file("in") + ": line 3 is longer than 1 MiB"},
      {"1 1 A\ntab\n2 2 B\n", RunOutcome::EndedEarly, "tab"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    person.shown.clear();
    const RunResult result = run(c.points);
    EXPECT_EQ(result.outcome, c.outcome);
    EXPECT_EQ(result.MessageText, c.text);
    EXPECT_EQ(person.shown.front().text, c.text);
    EXPECT_EQ(target(), std::string(kHead) + "A 2.00 3.00 3.00\nend\n");
  }
}

TEST_F(ConversionRun, ReportsATargetThatCannotBeWritten) {
  const struct {
    std::string name;
    std::string text;
  } cases[] = {{folder.file("missing/out"), folder.file("missing/out") + ": No such file or directory"},
               {"/dev/full", "/dev/full: No space left on device"}};
  for (const auto& c : cases) {
    settings.target.fileName = c.name;
    const RunResult result = runBatch("1 1 A\n");
    EXPECT_EQ(result.outcome, RunOutcome::Stopped);
    EXPECT_EQ(result.MessageText, c.text);
  }
}

TEST_F(ConversionRun, CompletesTheFileNameItsTargetNeeds) {
  settings.targetFormat = target::WayPointsPlus;
  const std::string plain = settings.target.fileName;

  person.answer = false;
  EXPECT_EQ(run("1 1 A\n").outcome, RunOutcome::Stopped);
  EXPECT_EQ(person.questions.back(),
            (Message{"Waypoints+ requires a .TXT extension on its input files.\nTovak will add .TXT to the specified "
                     "output file name.\nDo you want to accept the modification and proceed?  ",
                     "Change File Name?", Icon::Question}));
  EXPECT_EQ(settings.target.fileName, plain);

  person.answer = true;
  EXPECT_EQ(run("1 1 A\n").outcome, RunOutcome::Finished);
  EXPECT_EQ(settings.target.fileName, plain + ".txt");
  EXPECT_EQ(contentsOf(plain), "old");

  person.questions.clear();
  settings.target.fileName = folder.file("named.TXT");
  EXPECT_EQ(run("1 1 A\n").outcome, RunOutcome::Finished);
  EXPECT_TRUE(person.questions.empty());

  settings.target.fileName = folder.file("short");
  EXPECT_EQ(runBatch("1 1 A\n").outcome, RunOutcome::Finished);
  EXPECT_EQ(settings.target.fileName, folder.file("short.txt"));
}

TEST_F(ConversionRun, RefusesACompletedNameThatIsTheSource) {
  settings.targetFormat = target::WayPointsPlus;
  settings.BatchMode = 2;
  settings.source.fileName = folder.write("same.txt", "head\n1 1 A\n");
  settings.target.fileName = folder.file("same");
  const RunResult result = convert(settings, engine, {.sources = kSources, .targets = kTargets}, person);
  EXPECT_EQ(result.MessageText, "Source file has same name as target file.");
  EXPECT_EQ(contentsOf(settings.source.fileName), "head\n1 1 A\n");
}

TEST_F(ConversionRun, AsksBeforeItWarnsAndStopsOnNo) {
  settings.targetFormat = target::TrimbleWaypoints;
  settings.TargetProjectionCode = 103;
  person.answer = false;
  EXPECT_EQ(run("1 1 A\n").outcome, RunOutcome::Stopped);
  EXPECT_EQ(person.questions.front().text.find("Trimble documentation indicates that latitude and longitude"), 0U);
  EXPECT_TRUE(person.shown.empty());

  person.answer = true;
  person.acceptOptions = false;
  EXPECT_EQ(run("1 1 A\n").outcome, RunOutcome::Stopped);
  ASSERT_EQ(person.shown.size(), 1U);
  EXPECT_EQ(person.shown[0].icon, Icon::Information);
  EXPECT_EQ(person.shown[0].text.find("You are converting between the 1927 and 1983 North American Datums,\n  and"),
            0U);
  EXPECT_EQ(person.optionsShown, std::vector{TargetOptions::TrimbleWaypoints});
  EXPECT_EQ(target(), "old");

  person.shown.clear();
  person.questions.clear();
  EXPECT_EQ(runBatch("1 1 A\n").outcome, RunOutcome::Finished);
  EXPECT_TRUE(person.shown.empty());
  EXPECT_TRUE(person.questions.empty());
  EXPECT_EQ(person.optionsShown.size(), 1U);
}

TEST_F(ConversionRun, TakesUserDefinedProjectsFromTheEngine) {
  settings.SourceProjectionCode = 263;
  EXPECT_EQ(run("1 1 A\n").outcome, RunOutcome::Stopped);
  EXPECT_TRUE(person.shown.size() == 1 && person.shown[0].title == "Warning") << "the warning, and no message after it";
  EXPECT_EQ(target(), "old");

  engine.project = "Bypass~Projection = 5M~x";
  EXPECT_EQ(run("1 1 A\n").outcome, RunOutcome::Finished);
  EXPECT_EQ(engine.calls.back().source, "Projection = 5M~x");

  settings.SourceProjectionCode = 2;
  settings.source.projectionText = "2";
  settings.TargetProjectionCode = 263;
  engine.project = "None Selected";
  EXPECT_EQ(run("1 1 A\n").outcome, RunOutcome::Finished);
  EXPECT_EQ(engine.calls.back().target, "");
  EXPECT_EQ(target().substr(0, target().find('\n')), "$Tovak#$ NAD27 None Selected (Feet)");
}

TEST_F(ConversionRun, TurnsInteractiveOnTheFirstMessageOfBatchModeOne) {
  settings.sourceFormat = 2;
  settings.BatchMode = 1;
  EXPECT_EQ(run("1 1 A\n").MessageText, "This format is not available yet.");
  EXPECT_TRUE(person.shown.empty());
  EXPECT_EQ(settings.BatchMode, 1);

  person.hasWindow = true;
  run("1 1 A\n");
  EXPECT_EQ(person.shown.size(), 1U);
  EXPECT_EQ(settings.BatchMode, 0);
}

TEST_F(ConversionRun, WritesTheClosingLineOfItsTarget) {
  settings.targetFormat = target::GeopakXy;
  run("1 1 A\n");
  EXPECT_EQ(target(), std::string(kHead) + "A 2.00 3.00 3.00\nend\n$ END\n");
}

TEST_F(ConversionRun, FillsTheGridWithTheMostRecentPoints) {
  settings.sourceFormat = source::Keyboard;
  settings.targetFormat = target::ScreenOnly;
  settings.reportEnabled = true;
  for (int i = 0; i < 2001; ++i) person.typed.push_back({"", 1, 1});
  const RunResult result = run("");
  EXPECT_EQ(result.counts.converted, 2001U);
  std::vector<int> fresh;
  for (int i = 0; i < 2001; ++i) {
    if (person.freshGrids[static_cast<std::size_t>(i)]) fresh.push_back(i + 1);
  }
  EXPECT_EQ(fresh, (std::vector{1, 1000, 1999}));
  EXPECT_EQ(person.gridsShown, 0);

  settings.sourceFormat = source::CommaDelimited;
  run("1 1 A\n");
  EXPECT_EQ(person.gridsShown, 1);
}

}  // namespace
}  // namespace tovak::run
