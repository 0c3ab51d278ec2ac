#include "run/combination_rules.h"

#include <gtest/gtest.h>

#include "run/format_index.h"
#include "support/temporary_folder.h"

namespace tovak::run {
namespace {

/// A run that breaks no rule: comma delimited to comma delimited, state plane to state plane, in feet.
RunSettings soundSettings() {
  RunSettings settings;
  settings.sourceFormat = source::CommaDelimited;
  settings.targetFormat = target::CommaDelimited;
  settings.SourceProjectionCode = 2;
  settings.TargetProjectionCode = 3;
  settings.source.fileName = "/nowhere/in";
  settings.target.fileName = "/nowhere/out";
  return settings;
}

struct Selection {
  std::int16_t sourceFormat = source::CommaDelimited;
  std::int16_t source = 2;
  bool sourceMetres = false;
  std::int16_t targetFormat = target::CommaDelimited;
  std::int16_t target = 3;
  bool targetMetres = false;
};

RunSettings select(const Selection& selection) {
  RunSettings settings = soundSettings();
  settings.sourceFormat = selection.sourceFormat;
  settings.SourceProjectionCode = selection.source;
  settings.source.metres = selection.sourceMetres;
  settings.targetFormat = selection.targetFormat;
  settings.TargetProjectionCode = selection.target;
  settings.target.metres = selection.targetMetres;
  return settings;
}

constexpr const char* kSource = "Invalid source combination";
constexpr const char* kTarget = "Invalid target combination";

TEST(CombinationRules, RefuseWithTheirOwnWords) {
  const struct {
    Selection selection;
    Message message;
  } cases[] = {
      {{.source = 263, .target = 263},
       {"Both Source and Target Map Projections cannot be 'User Defined Project'", "Invalid conversion combination",
        Icon::None}},
      {{.source = 269}, {"For LMO or KRV batch calculations only", "Invalid map projection", Icon::None}},
      {{.target = 269}, {"For LMO or KRV batch calculations only", "Invalid map projection", Icon::None}},
      {{.sourceFormat = source::Vesko80Column, .source = 103},
       {"Vesko 80 column format not valid with NAD27 or NAD83 lat/long map projection", kSource, Icon::None}},
      {{.sourceFormat = source::Vesko80Column, .source = 104},
       {"Vesko 80 column format not valid with NAD27 or NAD83 UTM map projection", kSource, Icon::Exclamation}},
      {{.sourceFormat = source::CoordsLog, .source = 1},
       {"Trimble Coords.log format not valid with NAD27 or NAD83 UTM map projection", kSource, Icon::Exclamation}},
      {{.sourceFormat = source::BlueBook, .source = 107},
       {"Units must be meters in NGS files containing state plane coordinates", kSource, Icon::Exclamation}},
      {{.sourceFormat = source::BlueBook, .source = 268, .sourceMetres = true},
       {"NGS Blue Book format not valid with a county map projection or project coordinate system", kSource,
        Icon::Exclamation}},
      {{.sourceFormat = source::CoordsLog, .source = 5},
       {"Trimble Coords.log format not valid with a county map projection or project coordinate system", kSource,
        Icon::Exclamation}},
      {{.targetFormat = target::ScreenOnly}, {"Reports are Disabled", "Warning", Icon::Exclamation}},
      {{.targetFormat = target::Vesko80Column, .target = 0},
       {"Vesko 80 column format not valid with NAD27 or NAD83 lat/long map projection", kTarget, Icon::Exclamation}},
      {{.targetFormat = target::Vesko80Column, .target = 1},
       {"Vesko 80 column format not valid with NAD27 or NAD83 UTM map projection", kTarget, Icon::Exclamation}},
      {{.targetFormat = target::BlueBook, .target = 2},
       {"Units must be meters in NGS Blue Book files containing state plane coordinates.", kTarget, Icon::None}},
      {{.targetFormat = target::BlueBook, .target = 102},
       {"NGS Blue Book format not valid with a county map projection or county coordinate system", kTarget,
        Icon::Exclamation}},
      {{.targetFormat = target::GeodimeterControl, .target = 103},
       {"Geodimeter Raw format not valid with NAD27 or NAD83 lat/long map projection", kTarget, Icon::Exclamation}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.message.text + " / " + c.message.title);
    const Message* const broken = firstBrokenRule(select(c.selection));
    ASSERT_NE(broken, nullptr);
    EXPECT_EQ(*broken, c.message);
  }
}

TEST(CombinationRules, LetPassWhatNoRuleNames) {
  const Selection cases[] = {
      {},
      {.source = 263},
      {.source = 268, .target = 268},
      {.sourceFormat = source::BlueBook, .sourceMetres = true},
      {.sourceFormat = source::BlueBook, .source = 1},
      {.targetFormat = target::BlueBook, .targetMetres = true},
      // Codes 264 to 267 belong to no class.
      {.sourceFormat = source::Vesko80Column, .source = 264, .targetFormat = target::Vesko80Column, .target = 267},
      // Of each of these pairs of formats only the other one is named.
      {.sourceFormat = source::CoordsLogNumberInDescription, .source = 1},
      {.sourceFormat = source::CoordsLogNumberInDescription, .source = 5},
      {.targetFormat = target::GeodimeterAlignment, .target = 0},
  };
  for (const Selection& selection : cases) {
    const Message* const broken = firstBrokenRule(select(selection));
    EXPECT_EQ(broken, nullptr) << broken->text;
  }
}

TEST(CombinationRules, AreTriedInTheirOrder) {
  const struct {
    Selection selection;
    const char* title;
  } cases[] = {
      {{.source = 269, .targetFormat = target::ScreenOnly, .target = 263}, "Invalid map projection"},
      {{.sourceFormat = source::Vesko80Column, .source = 0, .targetFormat = target::ScreenOnly}, kSource},
      {{.targetFormat = target::ScreenOnly, .target = 0}, "Warning"},
  };
  for (const auto& c : cases) {
    ASSERT_NE(firstBrokenRule(select(c.selection)), nullptr);
    EXPECT_EQ(firstBrokenRule(select(c.selection))->title, c.title);
  }
  RunSettings settings = select({.targetFormat = target::GeodimeterControl, .target = 0});
  settings.target.fileName = settings.source.fileName;
  EXPECT_EQ(firstBrokenRule(settings)->title, "Conflicting file names");
}

TEST(CombinationRules, LetTheScreenPassWithReportsAndInBatchMode) {
  RunSettings settings = select({.targetFormat = target::ScreenOnly});
  settings.reportEnabled = true;
  EXPECT_EQ(firstBrokenRule(settings), nullptr);
  settings.reportEnabled = false;
  settings.BatchMode = 1;
  EXPECT_EQ(firstBrokenRule(settings), nullptr);
}

TEST(FilesCollide, WhenTwoOfThemAreOne) {
  const tests::TemporaryFolder folder;
  folder.write("in", "");
  folder.write("other", "");
  std::filesystem::create_hard_link(folder.path() / "in", folder.path() / "link");
  const struct {
    std::int16_t sourceFormat;
    std::int16_t targetFormat;
    const char* source;
    const char* target;
    const char* report;  ///< null: reports disabled
    bool collide;
  } cases[] = {
      {source::CommaDelimited, target::CommaDelimited, "in", "in", nullptr, true},
      {source::CommaDelimited, target::CommaDelimited, "in", "IN", nullptr, false},
      {source::CommaDelimited, target::CommaDelimited, "in", "./in", nullptr, true},
      {source::CommaDelimited, target::CommaDelimited, "in", "link", nullptr, true},
      {source::CommaDelimited, target::CommaDelimited, "in", "other", nullptr, false},
      {source::Keyboard, target::CommaDelimited, "in", "in", nullptr, false},
      {source::CommaDelimited, target::ScreenOnly, "in", "in", nullptr, false},
      {source::CommaDelimited, target::CommaDelimited, "in", "other", "link", true},
      {source::CommaDelimited, target::CommaDelimited, "in", "new", "./new", true},
      {source::Keyboard, target::ScreenOnly, "", "", "in", false},
      {source::CommaDelimited, target::CommaDelimited, "in", "other", "new", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.source << " to " << c.target << ", report " << (c.report ? c.report : "off"));
    RunSettings settings = soundSettings();
    settings.sourceFormat = c.sourceFormat;
    settings.targetFormat = c.targetFormat;
    settings.source.fileName = folder.file(c.source);
    settings.target.fileName = folder.file(c.target);
    settings.reportEnabled = c.report != nullptr;
    if (c.report != nullptr) settings.reportFileName = folder.file(c.report);
    if (std::string_view(c.target) == "IN" && std::filesystem::exists(folder.path() / "IN")) continue;
    EXPECT_EQ(filesCollide(settings), c.collide);
  }
}

TEST(CrossesDatums, ByTheRangeOfCodes) {
  const struct {
    std::int16_t source;
    std::int16_t target;
    bool crosses;
  } cases[] = {{0, 4, false}, {0, 103, true}, {103, 265, false}, {265, 266, true}, {102, 268, false}, {264, 2, true}};
  for (const auto& c : cases) {
    EXPECT_EQ(crossesDatums(select({.source = c.source, .target = c.target})), c.crosses)
        << c.source << ' ' << c.target;
  }
}

}  // namespace
}  // namespace tovak::run
