#include "run/combination_rules.h"

#include <set>

#include <gtest/gtest.h>

#include "run/format_index.h"
#include "support/temporary_folder.h"
#include "text/strings.h"

namespace tovak::run {
namespace {

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

/// What tells the message of each rule from all others: words of its text and title, commas between.
constexpr const char* kWords[] = {"Both",
                                  "LMO",
                                  "Vesko,lat/long,source",
                                  "Vesko,UTM,source",
                                  "Coords.log,UTM",
                                  "NGS files",
                                  "Blue Book,county,source",
                                  "Coords.log,county",
                                  "Disabled",
                                  "Vesko,lat/long,target",
                                  "Vesko,UTM,target",
                                  "Book files",
                                  "Blue Book,county,target",
                                  "Source file,same name",
                                  "report file",
                                  "Geodimeter,lat/long",
                                  "NAD83 latitude",
                                  "plane coordinates only"};

/// The numbers of the rules, counted from 1, that have such a message; none for no message.
std::string ruleOf(const Message* message) {
  std::string numbers;
  for (std::size_t i = 0; message != nullptr && i < std::size(kWords); ++i) {
    const std::string text = message->text + '\n' + message->title;
    bool all = true;
    for (std::string_view words = kWords[i]; all && !words.empty();)
      all = text.find(text::takeField(words, ',')) != std::string::npos;
    if (all) numbers += std::to_string(i + 1);
  }
  return numbers;
}

TEST(CombinationRules, RefuseInTheirOrder) {
  namespace S = source;
  namespace T = target;
  const std::pair<Selection, const char*> cases[] = {
      {{.code = 263, .toCode = 263}, "1"},
      {{.code = 269}, "2"},
      {{.toCode = 269}, "2"},
      {{.from = S::Vesko80Column, .code = 103}, "3"},
      {{.from = S::Vesko80Column, .code = 104}, "4"},
      {{.from = S::CoordsLog, .code = 1}, "5"},
      {{.from = S::BlueBook, .code = 107}, "6"},
      {{.from = S::BlueBook, .code = 268, .metres = true}, "7"},
      {{.from = S::CoordsLog, .code = 5}, "8"},
      {{.to = T::ScreenOnly}, "9"},
      {{.to = T::Vesko80Column, .toCode = 0}, "10"},
      {{.to = T::Vesko80Column, .toCode = 1}, "11"},
      {{.to = T::BlueBook, .toCode = 2}, "12"},
      {{.to = T::BlueBook, .toCode = 102}, "13"},
      {{.toFile = "/nowhere/in"}, "14"},
      {{.to = T::GeodimeterControl, .toCode = 103}, "16"},
      {{.to = T::DeLorme, .toCode = 103}, "17"},
      {{.to = T::Maptech, .toCode = 4}, "17"},
      {{.to = T::Kml, .toCode = 4}, "17"},
      {{.to = T::GeoJson, .toCode = 103}, "17"},
      {{.to = T::LandXml, .toCode = 0}, "18"},
      {{.to = T::Dxf, .toCode = 103}, "18"},
      // Of two rules the first one speaks.
      {{.from = S::BlueBook, .code = 263, .toCode = 263}, "1"},
      {{.from = S::Vesko80Column, .code = 103, .toCode = 269}, "2"},
      {{.from = S::Vesko80Column, .code = 0, .to = T::ScreenOnly}, "3"},
      {{.from = S::Vesko80Column, .code = 0, .to = T::Vesko80Column, .toCode = 1}, "3"},
      {{.to = T::Vesko80Column, .toCode = 1, .toFile = "/nowhere/in"}, "11"},
      {{.to = T::GeodimeterControl, .toCode = 0, .toFile = "/nowhere/in"}, "14"}};
  for (const auto& [selection, rule] : cases) {
    const Message* const broken = firstBrokenRule(select(selection));
    EXPECT_EQ(ruleOf(broken), rule) << "from " << selection.from << ", " << selection.code << " to " << selection.to
                                    << ", " << selection.toCode;
    const bool plain = std::set<std::string>{"1", "2", "3", "12"}.contains(rule);
    EXPECT_TRUE(broken == nullptr || broken->icon == (plain ? Icon::None : Icon::Exclamation)) << rule;
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
      Selection{.to = target::GeodimeterAlignment, .toCode = 0}, Selection{.to = target::DeLorme, .toCode = 0}};
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
    settings.options.geodeticCsv.sheets = {folder.file("third"), folder.file("in")};
    settings.target.fileName = folder.file(c.target);
    settings.reportFileName = folder.file(c.report);
    const Message* const collision = fileCollision(settings);
    EXPECT_EQ(ruleOf(collision), !c.collide          ? ""
                                 : *c.report == '\0' ? "14"
                                                     : "15")
        << c.source << " to " << c.target << ", report " << c.report;
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
