#include "run/combination_rules.h"

#include <gtest/gtest.h>

#include "run/format_index.h"
#include "support/temporary_folder.h"

namespace tovak::run {
namespace {

using enum Icon;

/// By itself a run that breaks no rule: comma delimited to comma delimited, state plane to state plane, in feet.
struct Selection {
  std::int16_t from = source::CommaDelimited;
  std::int16_t code = 2;
  bool metres = false;
  std::int16_t to = target::CommaDelimited;
  std::int16_t toCode = 3;
  bool toMetres = false;
  bool report = false;
  std::int16_t batch = 0;
  const char* toFile = "/nowhere/out";
};

RunSettings select(const Selection& s) {
  RunSettings settings;
  settings.sourceFormat = s.from;
  settings.SourceProjectionCode = s.code;
  settings.source = {.fileName = "/nowhere/in", .projectionText = {}, .displayName = {}, .metres = s.metres};
  settings.targetFormat = s.to;
  settings.TargetProjectionCode = s.toCode;
  settings.target = {.fileName = s.toFile, .projectionText = {}, .displayName = {}, .metres = s.toMetres};
  settings.reportEnabled = s.report;
  settings.BatchMode = s.batch;
  return settings;
}

const std::string kLatLong = " format not valid with NAD27 or NAD83 lat/long map projection";
const std::string kUtm = " format not valid with NAD27 or NAD83 UTM map projection";
const std::string kCounty = " format not valid with a county map projection or ";
const std::string kMetres = "Units must be meters in NGS ";
constexpr const char* kSource = "Invalid source combination";
constexpr const char* kTarget = "Invalid target combination";

TEST(CombinationRules, RefuseWithTheirOwnWordsInTheirOrder) {
  const Message userDefined = {"Both Source and Target Map Projections cannot be 'User Defined Project'",
                               "Invalid conversion combination", None};
  const Message lmo = {"For LMO or KRV batch calculations only", "Invalid map projection", None};
  const Message vesko = {"Vesko 80 column" + kLatLong, kSource, None};
  const Message reports = {"Reports are Disabled", "Warning", Exclamation};
  const Message files = {"Source file has same name as target file.", "Conflicting file names", Exclamation};
  const Message mapping = {"This format holds NAD83 latitude and longitude only.", kTarget, Exclamation};
  using source::CoordsLog;
  using target::GeodimeterControl, target::ScreenOnly;
  const std::tuple<Selection, Message> cases[] = {
      {{.code = 263, .toCode = 263}, userDefined},
      {{.code = 269}, lmo},
      {{.toCode = 269}, lmo},
      {{.from = source::Vesko80Column, .code = 103}, vesko},
      {{.from = source::Vesko80Column, .code = 104}, {"Vesko 80 column" + kUtm, kSource, Exclamation}},
      {{.from = CoordsLog, .code = 1}, {"Trimble Coords.log" + kUtm, kSource, Exclamation}},
      {{.from = source::BlueBook, .code = 107},
       {kMetres + "files containing state plane coordinates", kSource, Exclamation}},
      {{.from = source::BlueBook, .code = 268, .metres = true},
       {"NGS Blue Book" + kCounty + "project coordinate system", kSource, Exclamation}},
      {{.from = CoordsLog, .code = 5},
       {"Trimble Coords.log" + kCounty + "project coordinate system", kSource, Exclamation}},
      {{.to = ScreenOnly}, reports},
      {{.to = target::Vesko80Column, .toCode = 0}, {"Vesko 80 column" + kLatLong, kTarget, Exclamation}},
      {{.to = target::Vesko80Column, .toCode = 1}, {"Vesko 80 column" + kUtm, kTarget, Exclamation}},
      {{.to = target::BlueBook, .toCode = 2},
       {kMetres + "Blue Book files containing state plane coordinates.", kTarget, None}},
      {{.to = target::BlueBook, .toCode = 102},
       {"NGS Blue Book" + kCounty + "county coordinate system", kTarget, Exclamation}},
      {{.toFile = "/nowhere/in"}, files},
      {{.to = GeodimeterControl, .toCode = 103}, {"Geodimeter Raw" + kLatLong, kTarget, Exclamation}},
      {{.to = target::DeLorme, .toCode = 103}, mapping},
      {{.to = target::Maptech, .toCode = 4}, mapping},
      // Of two rules the first one speaks.
      {{.from = source::BlueBook, .code = 263, .toCode = 263}, userDefined},
      {{.from = source::Vesko80Column, .code = 103, .toCode = 269}, lmo},
      {{.from = source::Vesko80Column, .code = 0, .to = ScreenOnly}, vesko},
      {{.from = source::Vesko80Column, .code = 0, .to = target::Vesko80Column, .toCode = 1}, vesko},
      {{.to = target::Vesko80Column, .toCode = 1, .toFile = "/nowhere/in"},
       {"Vesko 80 column" + kUtm, kTarget, Exclamation}},
      {{.to = GeodimeterControl, .toCode = 0, .toFile = "/nowhere/in"}, files}};
  for (const auto& [selection, message] : cases) {
    const Message* const broken = firstBrokenRule(select(selection));
    EXPECT_TRUE(broken != nullptr && *broken == message) << message.text << " / " << message.title;
  }
}

TEST(CombinationRules, LetPassWhatNoRuleNames) {
  const Selection cases[] = {
      Selection{.code = 263}, Selection{.code = 268, .toCode = 268},
      Selection{.from = source::BlueBook, .metres = true}, Selection{.from = source::BlueBook, .code = 1},
      Selection{.to = target::BlueBook, .toMetres = true}, Selection{.to = target::ScreenOnly, .report = true},
      Selection{.to = target::ScreenOnly, .batch = 1},
      // Codes 264 to 267 belong to no class.
      Selection{.from = source::Vesko80Column, .code = 264, .to = target::Vesko80Column, .toCode = 267},
      // Of each of these pairs of formats only the other one is named.
      Selection{.from = source::CoordsLogNumberInDescription, .code = 1},
      Selection{.from = source::CoordsLogNumberInDescription, .code = 5},
      Selection{.to = target::GeodimeterAlignment, .toCode = 0}, Selection{.to = target::DeLorme, .toCode = 0},
      Selection{.to = target::WayPointsPlus, .toCode = 103}};
  for (const Selection& selection : cases) {
    const Message* const broken = firstBrokenRule(select(selection));
    EXPECT_EQ(broken, nullptr) << broken->text;
  }
}

TEST(FilesCollide, WhenTwoOfThemAreOne) {
  const tests::TemporaryFolder folder;
  for (const char* name : {"in", "other"}) folder.write(name, "");
  std::filesystem::create_hard_link(folder.path() / "in", folder.path() / "link");
  const struct {
    const char* source;
    const char* target;
    const char* report;  ///< empty: reports disabled
    bool collide;
    std::int16_t from = source::CommaDelimited;
    std::int16_t to = target::CommaDelimited;
  } cases[] = {{"in", "./in", "", true},
               {"in", "link", "", true},
               {"in", "other", "", false},
               {"in", "other", "link", true},
               {"in", "new", "./new", true},
               {"in", "other", "new", false},
               {"in", "in", "", false, source::Keyboard},
               {"other", "link", "", true, source::GeodeticCsv},
               {"other", "new", "in", true, source::GeodeticCsv},
               {"other", "new", "", false, source::GeodeticCsv},
               {"in", "in", "", false, source::CommaDelimited, target::ScreenOnly},
               {"in", "in", "in", false, source::Keyboard, target::ScreenOnly}};
  for (const auto& c : cases) {
    RunSettings settings = select({.from = c.from, .to = c.to, .report = *c.report != '\0'});
    settings.source.fileName = folder.file(c.source);
    settings.geodeticCsv.sheets = {folder.file("third"), folder.file("in")};
    settings.target.fileName = folder.file(c.target);
    settings.reportFileName = folder.file(c.report);
    const Message* const collision = fileCollision(settings);
    const std::string text = collision == nullptr ? "" : collision->text;
    const char* const expected = *c.report == '\0' ? "Source file has same name as target file."
                                                   : "The report file has the same name as the source or target file.";
    EXPECT_EQ(text, c.collide ? expected : "") << c.source << " to " << c.target << ", report " << c.report;
  }
}

TEST(CrossesDatums, ByTheRangeOfCodes) {
  const auto crosses = [](std::int16_t code, std::int16_t toCode) {
    return crossesDatums(select({.code = code, .toCode = toCode}));
  };
  EXPECT_TRUE(crosses(0, 103) && crosses(265, 266) && crosses(264, 2) && crosses(103, 102));
  EXPECT_FALSE(crosses(0, 4) || crosses(103, 265) || crosses(102, 268));
}

}  // namespace
}  // namespace tovak::run
