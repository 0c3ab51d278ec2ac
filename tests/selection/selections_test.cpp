#include "selection/selections.h"

#include <functional>

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/format_index.h"
#include "selection/enabled_controls.h"

namespace tovak::selection {
namespace {

using run::Adjustment;
using text::AngleForm;

const run::FormatTables kFormats = formats::formatTables();

/// What the rules can change, in the order of a row of a table.
struct State {
  std::int16_t source = run::source::Keyboard;
  std::int16_t target = run::target::ScreenOnly;
  std::string sourceBox = "0";
  std::string targetBox = "1";
  AngleForm form = AngleForm::DegreesMinutesSeconds;
  bool formChosen = true;
  Adjustment adjustment = Adjustment::None;

  bool operator==(const State&) const = default;
};

std::ostream& operator<<(std::ostream& out, const State& s) {
  return out << "formats " << s.source << " " << s.target << ", boxes " << s.sourceBox << " " << s.targetBox
             << ", form " << static_cast<int>(s.form) << (s.formChosen ? " chosen" : "") << ", adjustment "
             << static_cast<int>(s.adjustment);
}

Selections selectionsOf(const State& state) {
  Selections selections;
  selections.run.sourceFormat = state.source;
  selections.run.targetFormat = state.target;
  typeProjection(selections, Side::Source, state.sourceBox);
  typeProjection(selections, Side::Target, state.targetBox);
  selections.run.latLongForm = state.form;
  selections.run.latLongFormChosen = state.formChosen;
  selections.run.adjustment = state.adjustment;
  return selections;
}

State stateOf(const Selections& selections) {
  const run::RunSettings& run = selections.run;
  return {.source = run.sourceFormat,
          .target = run.targetFormat,
          .sourceBox = run.source.projectionText,
          .targetBox = run.target.projectionText,
          .form = run.latLongForm,
          .formChosen = run.latLongFormChosen,
          .adjustment = run.adjustment};
}

std::function<void(Selections&)> source(std::int16_t format) {
  return [format](Selections& s) { chooseSourceFormat(s, kFormats, format); };
}
std::function<void(Selections&)> target(std::int16_t format) {
  return [format](Selections& s) { chooseTargetFormat(s, kFormats, format); };
}
std::function<void(Selections&)> type(Side side, const char* text) {
  return [side, text](Selections& s) { typeProjection(s, side, text); };
}

TEST(Selections, FollowFromWhatIsChosen) {
  namespace S = run::source;
  namespace T = run::target;
  constexpr AngleForm kPacked = AngleForm::DegreesMinutesSeconds;
  constexpr AngleForm kDecimal = AngleForm::DecimalDegrees;
  const struct {
    const char* name;
    State before;
    std::function<void(Selections&)> action;
    State after;
  } cases[] = {
      {"agency source, metres", {}, source(S::GeodeticsSpecial), {S::GeodeticsSpecial, T::GeodeticsSpecial, "0", "1M"}},
      {"agency source, feet", {.targetBox = "1M"}, source(S::KrvBatch), {S::KrvBatch, T::KrvBatch, "0", "1"}},
      {"agency source, feet too", {.targetBox = "4M"}, source(S::LmoBatch), {S::LmoBatch, T::LmoBatch, "0", "4"}},
      {"agency target", {}, target(T::GeodeticsSpecial), {S::GeodeticsSpecial, T::GeodeticsSpecial, "0", "1"}},
      {"agency target keeps its unit", {.targetBox = "1M"}, target(T::KrvBatch), {S::KrvBatch, T::KrvBatch, "0", "1M"}},
      {"agency target, third", {}, target(T::LmoBatch), {S::LmoBatch, T::LmoBatch, "0", "1"}},
      {"agency target replaces a source that forced a form",
       {.source = S::Maptech, .sourceBox = "4", .form = kDecimal},
       target(T::KrvBatch),
       {S::KrvBatch, T::KrvBatch, "4", "1", kDecimal, false}},
      {"other agency pair",
       {.source = S::KrvBatch, .target = T::KrvBatch},
       source(S::GeodeticsSpecial),
       {S::GeodeticsSpecial, T::GeodeticsSpecial, "0", "1M"}},

      {"form of Maptech",
       {.sourceBox = "4", .formChosen = false},
       source(S::Maptech),
       {S::Maptech, T::ScreenOnly, "4", "1", kDecimal, true}},
      {"form of WayPoints+",
       {.sourceBox = "4", .form = kDecimal, .formChosen = false},
       source(S::WayPointsPlus),
       {S::WayPointsPlus, T::ScreenOnly, "4", "1", kPacked, true}},
      {"form after Maptech",
       {.source = S::Maptech, .sourceBox = "4", .form = kDecimal},
       source(S::CommaDelimited),
       {S::CommaDelimited, T::ScreenOnly, "4", "1", kDecimal, false}},
      {"form of a geographic source on NAD27",
       {.sourceBox = "103", .form = kDecimal, .formChosen = false},
       source(S::Sdms),
       {S::Sdms, T::ScreenOnly, "103", "1", kDecimal, true}},
      {"form when the projection becomes geographic",
       {.sourceBox = "4", .formChosen = false},
       type(Side::Source, "103"),
       {S::Keyboard, T::ScreenOnly, "103"}},
      {"form when it is no longer",
       {},
       type(Side::Source, "4"),
       {S::Keyboard, T::ScreenOnly, "4", "1", kPacked, false}},
      {"form kept by Maptech whatever the projection",
       {.source = S::Maptech},
       type(Side::Source, "4"),
       {S::Maptech, T::ScreenOnly, "4"}},
      {"form by hand",
       {},
       [](Selections& s) { chooseLatLongForm(s, AngleForm::DegreesDecimalMinutes); },
       {.form = AngleForm::DegreesDecimalMinutes}},

      {"target of DeLorme", {.targetBox = "4"}, target(T::DeLorme), {S::Keyboard, T::DeLorme, "0", "0"}},
      {"target of Maptech", {.targetBox = "4M"}, target(T::Maptech), {S::Keyboard, T::Maptech, "0", "0M"}},
      {"target of Maptech that was geographic",
       {.targetBox = "0M"},
       target(T::Maptech),
       {S::Keyboard, T::Maptech, "0", "0M"}},
      {"target of WayPoints+",
       {.targetBox = "107"},
       target(T::WayPointsPlus),
       {S::Keyboard, T::WayPointsPlus, "0", "0"}},
      {"target of others", {.targetBox = "4M"}, target(T::GeopakXy), {S::Keyboard, T::GeopakXy, "0", "4M"}},

      {"one adjustment at a time",
       {.adjustment = Adjustment::Nad83_1986},
       [](Selections& s) { chooseAdjustment(s, Adjustment::Nad83_2011); },
       {.adjustment = Adjustment::Nad83_2011}},
      {"unit by button", {}, [](Selections& s) { chooseUnit(s, Side::Source, true); }, {.sourceBox = "0M"}},
      {"unit by hand", {.targetBox = "4"}, type(Side::Target, "4m"), {.targetBox = "4M"}},
      {"unit stays with another number", {.targetBox = "4M"}, type(Side::Target, "3"), {.targetBox = "3M"}},
      {"unit after its mark was deleted", {.targetBox = "4M"}, type(Side::Target, "4"), {.targetBox = "4"}},
      {"nearest code", {}, type(Side::Target, "3.5"), {.targetBox = "4"}},
      {"system from the list",
       {.targetBox = "4M"},
       [](Selections& s) { pickProjection(s, Side::Target, 106); },
       {.targetBox = "106M"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Selections selections = selectionsOf(c.before);
    c.action(selections);
    EXPECT_EQ(stateOf(selections), c.after);
  }
}

TEST(Selections, ShowTheMarkOfMetresWhileABoxIsTypedInto) {
  Selections selections = selectionsOf({.sourceBox = "4M"});
  EXPECT_EQ(typeProjection(selections, Side::Source, ""), "M");
  EXPECT_EQ(typeProjection(selections, Side::Source, "10M"), "10M");
  EXPECT_EQ(typeProjection(selections, Side::Source, "10"), "10");
  EXPECT_FALSE(selections.run.source.metres);
}

TEST(Selections, AskForAFileThatIsNeededAndNotNamed) {
  Selections selections;
  EXPECT_TRUE(chooseSourceFormat(selections, kFormats, run::source::Sdms).askForFile);
  EXPECT_TRUE(chooseSourceFormat(selections, kFormats, run::source::KrvBatch).askForFile);
  EXPECT_FALSE(chooseSourceFormat(selections, kFormats, run::source::Keyboard).askForFile);
  EXPECT_TRUE(chooseTargetFormat(selections, kFormats, run::target::Sdms).askForFile);
  EXPECT_FALSE(chooseTargetFormat(selections, kFormats, run::target::ScreenOnly).askForFile);
  selections.run.source.fileName = selections.run.target.fileName = "here";
  EXPECT_FALSE(chooseSourceFormat(selections, kFormats, run::source::Sdms).askForFile);
  EXPECT_FALSE(chooseTargetFormat(selections, kFormats, run::target::Sdms).askForFile);
}

TEST(Selections, EnableWhatApplies) {
  Selections selections = selectionsFrom({});
  EnabledControls enabled = enabledControls(selections, kFormats);
  EXPECT_TRUE(enabled.sourceProjection && enabled.latLongForm && enabled.nextNumber && enabled.ordinaryOptions);
  EXPECT_FALSE(enabled.sourceFile || enabled.targetFile || enabled.report || enabled.database);

  selections.run.reportEnabled = selections.run.allowBlankPointNumbers = true;
  chooseSourceFormat(selections, kFormats, run::source::Sdms);
  typeProjection(selections, Side::Source, "4");
  enabled = enabledControls(selections, kFormats);
  EXPECT_TRUE(enabled.sourceFile && enabled.report);
  EXPECT_FALSE(enabled.targetFile || enabled.latLongForm || enabled.nextNumber);

  chooseTargetFormat(selections, kFormats, run::target::LmoBatch);
  enabled = enabledControls(selections, kFormats);
  EXPECT_TRUE(isAgencyRun(selections, kFormats) && enabled.sourceFile && enabled.targetFile);
  EXPECT_FALSE(enabled.sourceProjection || enabled.targetProjection || enabled.sourceUnits || enabled.latLongForm ||
               enabled.ordinaryOptions || enabled.report);
}

TEST(Selections, BecomeTheSettingsOfARunAndTakeBackWhatItChanged) {
  Selections selections = selectionsOf({.sourceBox = "4", .targetBox = "1M"});
  selections.run.source.fileName = " typed before ";
  selections.run.target.fileName = " out ";
  chooseTargetFormat(selections, kFormats, run::target::CommaDelimited);
  run::RunSettings settings = runSettings(selections, kFormats);
  EXPECT_EQ(settings.source.fileName, "") << "the keyboard is no file";
  EXPECT_EQ(settings.target.fileName, "out");
  EXPECT_EQ(settings.target.projectionText, "1M");

  settings.NextPointNumber = 12;
  settings.target.fileName = "out.txt";
  settings.source.projectionText = "a project of the engine's";
  takeBack(selections, settings);
  EXPECT_EQ(selections.run.NextPointNumber, 12);
  EXPECT_EQ(selections.run.target.fileName, "out.txt");
  EXPECT_EQ(selections.run.source.fileName, " typed before ");
  EXPECT_EQ(selections.run.source.projectionText, "4");
}

}  // namespace
}  // namespace tovak::selection
