#include "selection/selections.h"

#include <functional>

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/format_index.h"
#include "selection/exchange.h"
#include "support/row.h"
#include "support/temporary_folder.h"

namespace tovak::selection {
namespace {

using run::Adjustment;
using tests::row;
using text::AngleForm;

const run::FormatTables kFormats = formats::formatTables();

struct State {
  std::int16_t source = run::source::Keyboard;
  std::int16_t target = run::target::ScreenOnly;
  std::string sourceBox = "0";
  std::string targetBox = "1";
  AngleForm form = AngleForm::DegreesMinutesSeconds;
  bool formChosen = true;
  Adjustment adjustment = Adjustment::None;
};

Selections selectionsOf(const State& state) {
  Selections selections;
  selections.run.sourceFormat = state.source;
  selections.run.targetFormat = state.target;
  typeProjection(selections, Side::Source, state.sourceBox);
  typeProjection(selections, Side::Target, state.targetBox);
  selections.run.latLongForm = state.form;
  selections.run.latLongFormChosen = state.formChosen;
  selections.formIsForced = kFormats.sources[static_cast<std::size_t>(state.source)].forcedForm.has_value();
  selections.run.adjustment = state.adjustment;
  return selections;
}

/// What the rules can change.
tests::Values valuesOf(const Selections& selections) {
  const run::RunSettings& run = selections.run;
  return {{"source", row(run.sourceFormat)},
          {"target", row(run.targetFormat)},
          {"sourceBox", run.source.projectionText},
          {"targetBox", run.target.projectionText},
          {"form", row(static_cast<char>(run.latLongForm))},
          {"chosen", row(run.latLongFormChosen)},
          {"adjustment", row(static_cast<int>(run.adjustment))}};
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
  constexpr AngleForm kDecimal = AngleForm::DecimalDegrees;
  const auto form = [](Selections& s) { chooseLatLongForm(s, AngleForm::DegreesDecimalMinutes); };
  const auto adjustment = [](Selections& s) { chooseAdjustment(s, Adjustment::Nad83_2011); };
  const auto metres = [](Selections& s) { chooseUnit(s, Side::Source, true); };
  const auto pick = [](Selections& s) { pickProjection(s, Side::Target, 106); };
  const struct {
    State before;
    std::function<void(Selections&)> action;
    const char* changes;
  } cases[] = {
      // Agency formats come in pairs, from either list, and bring the unit of the target.
      {{}, source(S::GeodeticsSpecial), "source=8 target=9 targetBox=1M"},
      {{.targetBox = "1M"}, source(S::KrvBatch), "source=9 target=10 targetBox=1"},
      {{.targetBox = "4M"}, source(S::LmoBatch), "source=10 target=11 targetBox=4"},
      {{.source = S::KrvBatch, .target = T::KrvBatch}, source(S::GeodeticsSpecial), "source=8 target=9 targetBox=1M"},
      {{}, target(T::GeodeticsSpecial), "source=8 target=9 targetBox=1M"},
      {{.targetBox = "1M"}, target(T::KrvBatch), "source=9 target=10 targetBox=1"},
      {{}, target(T::LmoBatch), "source=10 target=11"},
      {{.source = S::Maptech, .sourceBox = "4", .form = kDecimal}, target(T::KrvBatch), "chosen=0 source=9 target=10"},
      // Some sources force the form of angles.
      {{.sourceBox = "4", .formChosen = false}, source(S::Maptech), "chosen=1 form=D source=11"},
      {{.sourceBox = "4", .form = kDecimal, .formChosen = false},
       source(S::WayPointsPlus),
       "chosen=1 form=S source=12"},
      {{.source = S::Maptech, .sourceBox = "4", .form = kDecimal}, source(S::CommaDelimited), "chosen=0 source=1"},
      {{.sourceBox = "103", .form = kDecimal, .formChosen = false}, source(S::Sdms), "chosen=1 source=4"},
      {{.sourceBox = "4", .formChosen = false}, type(Side::Source, "103"), "chosen=1 sourceBox=103"},
      {{}, type(Side::Source, "4"), "chosen=0 sourceBox=4"},
      {{.source = S::Maptech}, type(Side::Source, "4"), "sourceBox=4"},
      {{}, form, "form=M"},
      // Some targets force latitude and longitude.
      {{.targetBox = "4"}, target(T::DeLorme), "target=6 targetBox=0"},
      {{.targetBox = "4M"}, target(T::Maptech), "target=12 targetBox=0M"},
      {{.targetBox = "0M"}, target(T::Maptech), "target=12"},
      {{.targetBox = "107"}, target(T::WayPointsPlus), "target=13 targetBox=0"},
      {{.targetBox = "4M"}, target(T::GeopakXy), "target=14"},
      {{.adjustment = Adjustment::Nad83_1986}, adjustment, "adjustment=4"},
      // The unit stays with another number.
      {{}, metres, "sourceBox=0M"},
      {{.targetBox = "4"}, type(Side::Target, "4m"), "targetBox=4M"},
      {{.targetBox = "4M"}, type(Side::Target, "3"), "targetBox=3M"},
      {{.targetBox = "4M"}, type(Side::Target, "4"), "targetBox=4"},
      {{}, type(Side::Target, "3.5"), "targetBox=4"},
      {{.targetBox = "4M"}, pick, "targetBox=106M"},
  };
  for (const auto& c : cases) {
    Selections selections = selectionsOf(c.before);
    const tests::Values before = valuesOf(selections);
    c.action(selections);
    EXPECT_EQ(tests::changes(before, valuesOf(selections)), c.changes) << "of case " << &c - cases;
  }
}

TEST(Selections, ChangePlaces) {
  namespace S = run::source;
  namespace T = run::target;
  const struct {
    State before;
    const char* changes;  ///< of formats and boxes; behind ", " where names and layouts change places too
  } cases[] = {
      {{.source = S::CommaDelimited, .target = T::Sdms, .sourceBox = "4M", .targetBox = "107", .formChosen = false},
       "source=4 sourceBox=107 target=1 targetBox=4M, files"},
      {{.source = S::Maptech, .target = T::BlueBook, .targetBox = "3"},
       "chosen=0 source=3 sourceBox=3 target=12 targetBox=0, files"},
      {{.source = S::CommaDelimited,
        .target = T::WayPointsPlus,
        .sourceBox = "4",
        .targetBox = "0",
        .form = AngleForm::DecimalDegrees,
        .formChosen = false},
       "chosen=1 form=S source=12 sourceBox=0 target=1 targetBox=4, files"},
      // A format on one side only stays there, and each file name stays with its format.
      {{.source = S::CommaDelimited, .target = T::DeLorme, .sourceBox = "4", .targetBox = "0", .formChosen = false},
       "chosen=1 sourceBox=0"},
      {{.source = S::CoordsLog, .target = T::CommaDelimited, .targetBox = "4M"}, "chosen=0 sourceBox=4M targetBox=0"},
      {{.sourceBox = "103"}, "chosen=0 sourceBox=1 targetBox=103"},
  };
  for (const auto& c : cases) {
    Selections selections = selectionsOf(c.before);
    selections.run.source.fileName = selections.run.sourceDelimited.name = "read";
    selections.run.target.fileName = selections.run.targetDelimited.name = "written";
    const tests::Values before = valuesOf(selections);
    EXPECT_TRUE(canExchangeSides(selections, kFormats));
    exchangeSides(selections, kFormats);
    const bool files = selections.run.source.fileName == "written";
    EXPECT_EQ(tests::changes(before, valuesOf(selections)) + (files ? ", files" : ""), c.changes);
    EXPECT_EQ(row(selections.run.target.fileName, selections.run.sourceDelimited.name),
              files ? "read|written" : "written|read");
  }
  for (const State& state : {State{.source = S::GeodeticCsv}, State{.source = S::KrvBatch, .target = T::KrvBatch}})
    EXPECT_FALSE(canExchangeSides(selectionsOf(state), kFormats));
}

TEST(Selections, ShowTheMarkOfMetresWhileABoxIsTypedInto) {
  Selections selections = selectionsOf({.sourceBox = "4M"});
  EXPECT_EQ(typeProjection(selections, Side::Source, ""), "M");
  EXPECT_EQ(typeProjection(selections, Side::Source, "10M"), "10M");
  EXPECT_EQ(typeProjection(selections, Side::Source, "10", true), "10M") << "typed over the selected number";
  EXPECT_EQ(typeProjection(selections, Side::Source, "10"), "10");
  EXPECT_FALSE(selections.run.source.metres);
}

TEST(Selections, AskForAFileThatIsNeededAndNotNamed) {
  for (const bool named : {false, true}) {
    Selections selections;
    if (named) selections.run.source.fileName = selections.run.target.fileName = "here";
    for (const std::int16_t format : {run::source::Sdms, run::source::KrvBatch})
      EXPECT_NE(chooseSourceFormat(selections, kFormats, format).askForFile, named);
    EXPECT_FALSE(chooseSourceFormat(selections, kFormats, run::source::Keyboard).askForFile);
    EXPECT_NE(chooseTargetFormat(selections, kFormats, run::target::Sdms).askForFile, named);
    EXPECT_FALSE(chooseTargetFormat(selections, kFormats, run::target::ScreenOnly).askForFile);
  }
}

TEST(Selections, BecomeTheSettingsOfARunAndTakeBackWhatItChanged) {
  Selections selections = selectionsOf({.sourceBox = "4", .targetBox = "1M"});
  selections.run.source.fileName = " typed before ";
  selections.run.target.fileName = " out ";
  chooseTargetFormat(selections, kFormats, run::target::CommaDelimited);
  run::RunSettings settings = runSettings(selections, kFormats);
  EXPECT_EQ(settings.source.fileName, "") << "the keyboard is no file";
  EXPECT_EQ(settings.target.fileName, "out");
  const tests::TemporaryFolder folder;
  selections.run.target.fileName = folder.write("ends blank ", "");
  EXPECT_EQ(runSettings(selections, kFormats).target.fileName, folder.file("ends blank "));
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
