#include "run/conversion_run.h"

#include <csignal>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "run/account_lines.h"
#include "run/format_index.h"
#include "run/keyboard_reader.h"
#include "run/projection_code.h"
#include "run/run_messages.h"
#include "run/unconverted_lines.h"
#include "support/scripted_engine.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"
#include "text/number.h"

namespace tovak::run {
namespace {

using tests::contentsOf;
using text::AngleForm;
using enum Icon;

/// A small format of its own: "northing easting number" on a line; other lines are orders to the reader.
struct LinesReader final : PointReader {
  explicit LinesReader(const SourceContext& given) : context(given) {}
  bool check() override {
    std::string_view line;
    context.message = {"nothing in it", "Invalid file", Exclamation};
    return context.lines.next(line);
  }
  ReadState read(PointRecord& point) override {
    std::string_view line;
    if (!context.lines.next(line)) return ReadState::End;
    context.message = {std::string(line), "Reader", Exclamation};
    if (line == "tab") return ReadState::EndedEarly;
    if (line == "broken") return ReadState::Stopped;
    const text::LeadingNumber northing = text::parseLeadingNumber(line);
    const text::LeadingNumber easting = text::parseLeadingNumber(line.substr(northing.length));
    point.InNorthLat = northing.value;
    point.InEastLon = easting.value;
    point.pointNumber = line.substr(std::min(line.size(), northing.length + easting.length + 1));
    point.sourceLine = context.lines.lineNumber();
    return ReadState::Point;
  }
  SourceContext context;
};

struct LinesWriter final : PointWriter {
  explicit LinesWriter(const TargetContext& given) : context(given) {}
  bool begin() override { return context.lines.writeLine("begin"); }
  bool write(const PointRecord& point) override {
    std::string line = point.pointNumber;
    for (const double value : {point.OutNorthLat, point.OutEastLon, point.Elevation})
      text::appendFixed(line += ' ', value, 0);
    return context.lines.writeLine(line);
  }
  bool end() override { return context.lines.writeLine("end"); }
  TargetContext context;
};

/// A report of lines, to see what the run tells it.
struct LinesReport final : PointWriter {
  explicit LinesReport(const ReportContext& given) : context(given) {}
  bool begin() override {
    return context.lines.writeLine(context.heading.version + ' ' + context.heading.source + ' ' +
                                   context.heading.target);
  }
  bool write(const PointRecord& point) override { return writeRefused(point, "converted"); }
  bool writeRefused(const PointRecord& point, std::string_view reason) override {
    return context.lines.writeLine(point.pointNumber + ' ' + std::string(reason));
  }
  bool end() override { return context.lines.writeLine("end of report"); }
  ReportContext context;
};

constexpr std::int16_t kForcing = source::Maptech;

/// Formats of lines; those that the run itself knows by name have their places.
std::vector<SourceFormat> sources() {
  const SourceFormat lines = {.name = "lines",
                              .makeReader = [](const SourceContext& c) -> std::unique_ptr<PointReader> {
                                return std::make_unique<LinesReader>(c);
                              }};
  std::vector<SourceFormat> formats(14, lines);
  formats[source::Keyboard] = {.name = "keyboard", .kind = SourceKind::Keyboard, .makeReader = makeKeyboardReader};
  formats[kForcing].prepare = [](RunSettings& settings) { settings.sourceDelimited.fieldCodes = " 0~"; };
  formats[source::GeodeticsSpecial] = {.name = "agency",
                                       .kind = SourceKind::AgencyRun,
                                       .exportFile =
                                           [](const ExportContext& c) {
                                             c.message = {"exported", "Agency", Information};
                                             return c.targetIsPartner;
                                           },
                                       .partner = AgencyPartner{.format = target::GeodeticsSpecial}};
  formats[kForcing].forcedForm = AngleForm::DecimalDegrees;
  formats[source::GeodeticCsv].fromDatabase = true;
  formats[source::GeodeticCsv].missingChoice = [](const RunSettings& settings) -> std::optional<Message> {
    if (settings.options.geodeticCsv.horizontal != 0) return std::nullopt;
    return Message{"nothing chosen", "Choice", Exclamation};
  };
  formats[source::GeodeticCsv].forcedUnit = LengthUnit::usSurveyFeet;
  formats[source::GeodeticCsv].forcedForm = AngleForm::DegreesMinutesSeconds;
  return formats;
}

std::vector<TargetFormat> targets() {
  const TargetFormat lines = {.name = "lines",
                              .makeWriter = [](const TargetContext& c) -> std::unique_ptr<PointWriter> {
                                return std::make_unique<LinesWriter>(c);
                              }};
  std::vector<TargetFormat> formats(16, lines);
  formats[target::ScreenOnly] = {.name = "screen", .kind = TargetKind::Screen};
  formats[target::GeodeticsSpecial].kind = TargetKind::AgencyRun;
  formats[target::TrimbleWaypoints].options = TargetOptions::TrimbleWaypoints;
  formats[target::TrimbleWaypoints].latLongQuestion = messages::waypointsInLatLong;
  formats[target::WayPointsPlus].fileNameEnding = ".txt";
  formats[target::WayPointsPlus].fileNameQuestion = messages::changeFileName;
  formats[target::GeopakXy].closingLine = "$ END";
  return formats;
}

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
    return convertSource();
  }
  RunResult convertSource() {
    person.shown.clear();
    person.questions.clear();
    engine.calls.clear();
    const std::vector<SourceFormat> from = sources();
    const std::vector<TargetFormat> to = targets();
    const ReportFormat report = {.makeWriter = [](const ReportContext& c) -> std::unique_ptr<PointWriter> {
                                   return std::make_unique<LinesReport>(c);
                                 },
                                 .version = "1.2.3",
                                 .today = text::today};
    return convert(settings, engine, {.sources = from, .targets = to, .report = report}, person.audience());
  }
  void enableReport() {
    settings.reportEnabled = true;
    settings.reportFileName = folder.write("report", "old report\n");
  }
  std::string report() const { return contentsOf(settings.reportFileName); }
  bool finishes() { return run("1 1 A\n").outcome == RunOutcome::Finished; }

  std::string target() const { return contentsOf(settings.target.fileName); }
  /// The target that holds these lines between the run's and the format's own.
  static std::string file(const std::string& points) { return "$Tovak#3$ NAD83  (Feet)\nbegin\n" + points + "end\n"; }

  const tests::TemporaryFolder folder;
  RunSettings settings;
  tests::ScriptedEngine engine;
  tests::ScriptedPerson person;
};

TEST_F(ConversionRun, CarriesEachPointThroughTheEngineAndSkipsWhatItRefuses) {
  engine.refusals = {{30, 8}, {50, -1}};
  for (const std::int16_t batch : {std::int16_t{0}, std::int16_t{2}}) {
    settings.BatchMode = batch;
    const RunResult result = run("10 20 A\n30 40 B\n50 60 C\n");
    EXPECT_EQ(result.outcome, RunOutcome::Finished);
    EXPECT_EQ(target(), file("A 11 22 3\nC 0 0 0\n"));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"in", "out"}));
    EXPECT_EQ(engine.calls.front().source + engine.calls.front().target, "23");
    EXPECT_TRUE(result.counts.converted == 2 && result.counts.refusedByEngine.count == 1);
    EXPECT_TRUE(result.counts.firstSkippedLine == 3 && result.counts.firstSkipReason == "refused with 8");
    const Message refused = {.text = "refused with 8",
                             .title = "TovakX Conversion Error",
                             .detail = "line 3 of " + folder.file("in") + "\nNorthing 30.000, easting 40.000",
                             .ofOnePoint = true,
                             .mayStop = true};
    const std::vector<Message> messages = {refused,
                                           {.text = "Output File Written",
                                            .title = "Finished",
                                            .icon = Information,
                                            .detail = "3 records read: 2 converted, 1 skipped (1 by the engine; first "
                                                      "in line 3: refused with 8), 0 passed over"}};
    EXPECT_EQ(person.shown, batch == 0 ? messages : std::vector<Message>{});
  }
}

TEST_F(ConversionRun, NumbersPointsThatHaveNoNumber) {
  settings.targetFormat = target::GeopakXy;
  run("1 1 \n2 2 X\n3 3 \n");
  EXPECT_EQ(target(), file("1 2 3 3\nX 3 4 3\n2 4 5 3\n") + "$ END\n");
  EXPECT_EQ(settings.NextPointNumber, 3);
  settings.allowBlankPointNumbers = true;
  run("1 1 \n");
  EXPECT_EQ(target(), file(" 2 3 3\n") + "$ END\n");
}

TEST_F(ConversionRun, HandsCoordinatesAndTheFormToTheEngine) {
  const std::tuple<std::int16_t, AngleForm, std::int16_t, const char*, const char*> cases[] = {
      {1, AngleForm::DecimalDegrees, 103, "45.5 -93.25 A", "45.50 -93.25 D"},
      {1, AngleForm::DegreesDecimalMinutes, 0, "45.5 -93.25 A", "45.50 -93.25 S"},
      {kForcing, AngleForm::DegreesMinutesSeconds, 0, "45.5 -93.25 A", "45.50 -93.25 D"},
      {1, AngleForm::DegreesMinutesSeconds, 104, "4599 93 A", "4599.00 93.00 S"}};
  for (const auto& [format, form, code, line, expected] : cases) {
    settings.sourceFormat = format;
    settings.latLongForm = form;
    settings.SourceProjectionCode = code;
    run(line);
    ASSERT_EQ(engine.calls.size(), 1U) << line;
    std::string call;
    text::appendFixed(call, engine.calls[0].northing, 2);
    text::appendFixed(call += ' ', engine.calls[0].easting, 2);
    EXPECT_EQ(call + ' ' + engine.calls[0].form, expected);
    // Formats that built-in ones replaced come back.
    EXPECT_EQ(settings.sourceDelimited.fieldCodes, DelimitedFormat().fieldCodes);
  }
}

TEST_F(ConversionRun, RefusesBeforeAnythingIsTouched) {
  const std::tuple<std::int16_t, std::int16_t, Message> cases[] = {
      {source::GeodeticsSpecial, 1, {"exported", "Agency", Information}},
      {1,
       target::GeodeticsSpecial,
       {"The source format must be the one that goes with this target.", "Invalid source", Exclamation}},
      {source::GeodeticCsv, 1, {"nothing chosen", "Choice", Exclamation}},
      {1, target::ScreenOnly, {"Reports are Disabled", "Warning", Exclamation}}};
  for (const auto& [from, to, message] : cases) {
    settings.sourceFormat = from;
    settings.targetFormat = to;
    const RunResult result = run("1 1 A\n");
    EXPECT_EQ(result.outcome, RunOutcome::Stopped);
    EXPECT_EQ(result.MessageText, message.text);
    EXPECT_EQ(person.shown, std::vector{message});
    EXPECT_EQ(target(), "old");
  }
  settings.sourceFormat = source::GeodeticsSpecial;
  settings.targetFormat = target::GeodeticsSpecial;
  settings.TargetProjectionCode = 300;  // which the combination rules would refuse
  for (const std::int16_t batch : {std::int16_t{0}, std::int16_t{2}}) {
    settings.BatchMode = batch;
    const RunResult result = run("");
    EXPECT_TRUE(result.outcome == RunOutcome::Finished && result.MessageText.empty());
    EXPECT_EQ(person.shown.size(), batch == 0 ? 1U : 0U);
  }
}

TEST_F(ConversionRun, NeedsTheNamesOfItsFiles) {
  settings.target.fileName.clear();
  for (const std::int16_t format : {source::CommaDelimited, source::GeodeticsSpecial}) {
    settings.sourceFormat = format;
    settings.source.fileName = "in";
    EXPECT_EQ(convertSource().MessageText, "Target File Was Not Specified.");
    settings.source.fileName.clear();
    EXPECT_EQ(convertSource().MessageText, "Source File Was Not Specified.");
    EXPECT_EQ(person.shown.back().focus, "txtSourceFile");
  }
}

TEST_F(ConversionRun, KeepsAnOlderTargetWhenNoPointWasConverted) {
  engine.refusals = {{30, 8}};
  enableReport();
  const std::string out = settings.target.fileName, kept = "No point was converted; " + out + " was left as it was.";
  const std::tuple<std::string, RunOutcome, std::string> cases[] = {
      {"", RunOutcome::Finished, kept + "|0 records read"},
      {"30 40 B\n", RunOutcome::Finished, kept + "|1 record read"},
      {"30 40 B\nbroken\n", RunOutcome::Stopped, "broken|" + kept + "\n1 record read"}};
  for (const auto& [points, outcome, said] : cases) {
    EXPECT_EQ(run(points).outcome, outcome);
    EXPECT_TRUE((person.shown.back().text + '|' + person.shown.back().detail).starts_with(said)) << said;
    EXPECT_EQ(target(), "old");
  }
  EXPECT_NE(report().find("B refused with 8"), std::string::npos) << "the report is not touched by this";
  settings.target.fileName = folder.file("new");
  EXPECT_EQ(run("30 40 B\n").target, TargetState::Written);
  EXPECT_EQ(target(), file(""));
}

TEST_F(ConversionRun, SettlesUnitAndFormOfADatabase) {
  settings.sourceFormat = source::GeodeticCsv;
  settings.options.geodeticCsv.horizontal = 1;
  settings.SourceProjectionCode = 103;
  settings.source.metres = true;
  run("450000 930000 A");
  EXPECT_EQ(engine.calls.back().source, "103");
  EXPECT_FALSE(settings.source.metres) << "the sheets are in feet";
}

TEST_F(ConversionRun, KeepsTheOldTargetWhenAFileIsOfNoUse) {
  const std::string in = folder.write("in", "head\n1 1 A\n"), out = settings.target.fileName;
  const std::string empty = folder.write("empty", ""), missing = folder.file("missing/file");
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {missing, out, missing + ": No such file or directory"},
      {empty, out, "nothing in it"},
      {in, missing, missing + ": No such file or directory"},
      {in, "/dev/full", "/dev/full: No space left on device"}};
  for (const auto& [from, to, text] : cases) {
    settings.source.fileName = from;
    settings.target.fileName = to;
    const RunResult result = convertSource();
    EXPECT_EQ(result.outcome, RunOutcome::Stopped);
    EXPECT_EQ(result.MessageText, text);
    EXPECT_EQ(contentsOf(out), "old");
  }
}

TEST_F(ConversionRun, KeepsThePointsSoFarWhenAMessageStopsIt) {
  const std::tuple<std::string, RunOutcome, std::string> cases[] = {
      {"1 1 A\nbroken\n2 2 B\n", RunOutcome::Stopped, "broken"},
      {"1 1 A\n" + std::string(2 << 20, 'x'), RunOutcome::Stopped, folder.file("in") + ": line 3 is longer than 1 MiB"},
      {"1 1 A\ntab\n2 2 B\n", RunOutcome::EndedEarly, "tab"}};
  for (const auto& [points, outcome, text] : cases) {
    folder.write("out", "old");
    const RunResult result = run(points);
    EXPECT_EQ(result.outcome, outcome) << text;
    EXPECT_EQ(result.MessageText, text);
    EXPECT_EQ(person.shown.front().text, text);
    EXPECT_EQ(target(), file("A 2 3 3\n"));
  }
}

TEST_F(ConversionRun, CompletesTheFileNameItsTargetNeeds) {
  settings.TargetProjectionCode = kLatLongNad83;
  settings.targetFormat = target::WayPointsPlus;
  const std::string plain = settings.target.fileName;
  person.answer = false;
  EXPECT_FALSE(finishes());
  EXPECT_TRUE(person.questions[0].title == "Change File Name?" && person.questions[0].icon == Question);
  EXPECT_EQ(settings.target.fileName, plain);

  person.answer = true;
  EXPECT_TRUE(finishes());
  EXPECT_EQ(settings.target.fileName, plain + ".txt");
  EXPECT_EQ(contentsOf(plain), "old");

  settings.target.fileName = folder.file("named.TXT");
  EXPECT_TRUE(finishes() && person.questions.empty());

  settings.BatchMode = 2;
  settings.source.fileName = folder.write("same.txt", "head\n1 1 A\n");
  settings.target.fileName = folder.file("same");
  EXPECT_EQ(convertSource().MessageText, "Source file has same name as target file.");
  EXPECT_EQ(target(), "head\n1 1 A\n");
}

TEST_F(ConversionRun, AsksBeforeItWarnsAndStopsOnNo) {
  settings.targetFormat = target::TrimbleWaypoints;
  settings.TargetProjectionCode = 103;
  person.answer = false;
  EXPECT_FALSE(finishes());
  EXPECT_EQ(person.questions.front().text.find("Trimble documentation indicates that latitude and longitude"), 0U);
  EXPECT_TRUE(person.shown.empty());

  person.answer = true;
  person.acceptOptions = false;
  EXPECT_FALSE(finishes());
  EXPECT_TRUE(person.shown.size() == 1 && person.shown[0].icon == Information);
  EXPECT_EQ(person.shown[0].text.find("You are converting between the 1927 and 1983 North American Datums,\n  "), 0U);
  EXPECT_EQ(person.optionsShown, std::vector{TargetOptions::TrimbleWaypoints});
  EXPECT_EQ(target(), "old");

  settings.BatchMode = 2;
  EXPECT_TRUE(finishes() && person.shown.empty() && person.questions.empty() && person.optionsShown.size() == 1);
}

TEST_F(ConversionRun, TakesUserDefinedProjectsFromTheEngine) {
  settings.SourceProjectionCode = 263;
  EXPECT_FALSE(finishes());
  EXPECT_TRUE(person.shown.size() == 1 && person.shown[0].title == "Warning") << "the warning, and no message after it";
  EXPECT_EQ(target(), "old");

  engine.project = "Bypass~Projection = 5M~x";
  EXPECT_TRUE(finishes());
  EXPECT_EQ(engine.calls.back().source, "Projection = 5M~x");
  EXPECT_TRUE(settings.source.metres) << "the unit is the project's";

  engine.project = "project.txt: line 2: damaged";
  EXPECT_FALSE(finishes());
  EXPECT_EQ(person.shown.back().text, "The user-defined project cannot be used.\nproject.txt: line 2: damaged");

  settings.SourceProjectionCode = 2;
  settings.TargetProjectionCode = 263;
  engine.project = "None Selected";
  engine.refusals[0] = 10;
  EXPECT_FALSE(finishes());
  EXPECT_EQ(person.shown.back().text, "The user-defined project cannot be used.\nrefused with 10");
}

TEST_F(ConversionRun, TurnsInteractiveOnTheFirstMessageOfBatchModeOne) {
  settings.targetFormat = target::GeodeticsSpecial;
  settings.BatchMode = 1;
  for (const bool hasWindow : {false, true}) {
    person.hasWindow = hasWindow;
    EXPECT_FALSE(finishes());
    EXPECT_EQ(person.shown.size(), hasWindow ? 1U : 0U);
    EXPECT_EQ(settings.BatchMode, hasWindow ? 0 : 1);
  }
}

TEST_F(ConversionRun, TellsItsProgressAndStopsWithoutATrace) {
  std::string points;
  for (int i = 0; i < 40000; ++i) points += "1 2 A\n";
  run(points);
  const Reached& end = person.progressTold.back();
  EXPECT_EQ(std::tuple(end.records, end.bytes, end.size), std::tuple(40000U, points.size() + 5, points.size() + 5));

  enableReport();
  settings.NextPointNumber = 7;
  settings.target.fileName = folder.write("out", "old");
  engine.refusals[2] = 10;
  // Before the first line, at a tenth, in the middle, and from the box about a point.
  for (const double part : {0.0, 0.1, 0.5, 2.0}) {
    person.stopsAt = part;
    person.stopsInBox = true;
    const RunResult result = run(points + "2 2 \n");
    EXPECT_EQ(result.outcome, RunOutcome::Cancelled);
    EXPECT_EQ(person.shown.size(), part > 1.0 ? 1U : 0U);
    EXPECT_EQ(accountLines(result).front(), "The run was stopped before its end");
    EXPECT_EQ(settings.NextPointNumber, 7);
    EXPECT_EQ(target() + report(), "oldold report\n");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"in", "out", "report"}));
  }
}

TEST_F(ConversionRun, KeepsTheLinesThatWereNotConvertedAndASampleOfThePoints) {
  engine.refusals[2] = 10;
  std::string points;
  for (int i = 0; i < 6; ++i) points += "1 2 A\n2 2 B" + std::string(600, 'b') + '\n';
  PointSample sample(4);
  person.sample = &sample;
  person.keptLines = 5;
  const RunResult result = run(points);
  const UnconvertedLines list = unconvertedLines(result.counts, settings, 4);
  EXPECT_EQ(std::pair(list.lines.size(), list.count), std::pair(std::size_t{4}, std::uint64_t{6}));
  EXPECT_EQ(list.lines[1].line, 5U);
  EXPECT_EQ(list.lines[1].text, "2 2 B" + std::string(495, 'b'));
  EXPECT_EQ(list.lines[1].reason, "refused with 10");

  std::vector<std::uint64_t> lines;
  for (const SampledPoint& point : sample.take(result.counts.doubts)) lines.push_back(point.line);
  EXPECT_EQ(lines, (std::vector<std::uint64_t>{2, 3, 6, 7, 10, 11})) << "every second one of both fates";
}

TEST_F(ConversionRun, FillsTheGridWithTheMostRecentPoints) {
  settings.sourceFormat = source::Keyboard;
  settings.targetFormat = target::ScreenOnly;
  enableReport();
  person.typed.resize(2001, {"", 1, 1});
  EXPECT_EQ(run("").counts.converted, 2001U);
  std::vector<std::size_t> fresh;
  for (std::size_t i = 0; i < person.freshGrids.size(); ++i) {
    if (person.freshGrids[i]) fresh.push_back(i + 1);
  }
  EXPECT_EQ(fresh, (std::vector<std::size_t>{1, 1000, 1999}));
  EXPECT_EQ(person.gridsShown, 0);
  settings.sourceFormat = source::CommaDelimited;
  EXPECT_TRUE(finishes() && person.gridsShown == 1);
}

TEST_F(ConversionRun, TellsTheEngineWhetherResultTextsAreRead) {
  settings.reportFileName = folder.file("report");
  for (const bool report : {false, true, false}) {
    settings.reportEnabled = report;
    run("1 1 A\n");
    EXPECT_EQ(engine.resultTexts, report);
  }
}

TEST_F(ConversionRun, ReportsWhatBecameOfEachPointAndPrintsIt) {
  enableReport();
  settings.adjustment = Adjustment::Nad83_2011;
  settings.printReport = settings.appendReport = true;
  settings.TargetProjectionCode = 263;
  engine.project = "Bypass~Projection = 5M";
  engine.refusals = {{30, 8}};
  const std::string head = "old report\n1.2.3 NAD83(2011) 2 NAD27 Bypass\nA converted\n", end = "end of report\n";
  // A message in the middle keeps the points so far; what it stopped is not printed.
  const std::tuple<std::string, std::string, bool> cases[] = {
      {"30 40 B\n", "B refused with 8\n", true}, {"tab\n3 3 C\n", "", true}, {"broken\n3 3 C\n", "", false}};
  for (const auto& [points, told, printed] : cases) {
    folder.write("report", "old report\n");
    person.printedFrom.clear();
    run("10 20 A\n" + points);
    EXPECT_EQ(report(), head + told + end);
    EXPECT_EQ(person.printedFrom, printed ? std::vector<std::uint64_t>{11} : std::vector<std::uint64_t>());
  }
}

TEST_F(ConversionRun, NamesTheTargetBeforeItsReportIsPutBehindAnOlderOne) {
  enableReport();
  settings.appendReport = true;
  const std::string older = folder.write("report", std::string(5000, 'o'));
  // There is room for the target and for the new report, but not behind the older one.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit limit = {.rlim_cur = 5010, .rlim_max = before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  const RunResult result = run("1 1 A\n");
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(result.MessageText, older + ": File too large");
  EXPECT_EQ(result.target, TargetState::Written);
  EXPECT_EQ(target(), file("A 2 3 3\n"));
  EXPECT_EQ(report(), std::string(5000, 'o'));
}

TEST_F(ConversionRun, ReplacesNeitherFileWhenOneCannotBeWritten) {
  enableReport();
  const std::string name = settings.reportFileName, out = settings.target.fileName;
  const std::string missing = folder.file("missing/file"), inMissing = missing + ": No such file or directory";
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {out, missing, inMissing},
      {out, "/dev/full", "/dev/full: No space left on device"},
      {out, "", "The report file has no name."},
      {missing, name, inMissing},
      {"/dev/full", name, "/dev/full: No space left on device"}};
  for (const bool append : {false, true}) {
    for (const auto& [target, report, text] : cases) {
      settings.appendReport = append;
      settings.target.fileName = target;
      settings.reportFileName = report;
      EXPECT_EQ(run("1 1 A\n").MessageText, text);
      EXPECT_EQ(contentsOf(out) + contentsOf(name), "oldold report\n");
      EXPECT_EQ(folder.names(), (std::vector<std::string>{"in", "out", "report"}));
    }
  }
}

}  // namespace
}  // namespace tovak::run
