// What is suggested for the content of a file.
#include "selection/suggestions.h"

#include <gtest/gtest.h>

#include "selection/file_content.h"
#include "selection/sample_files.h"
#include "selection/source_trial.h"
#include "support/row.h"
#include "support/temporary_folder.h"

namespace tovak::selection {
namespace {

using tests::row;
using text::AngleForm;
namespace source = run::source;

std::string labels(const std::vector<Suggestion>& suggestions) {
  std::string text;
  for (const Suggestion& suggestion : suggestions) text += (text.empty() ? "" : "|") + suggestion.label;
  return text;
}

TEST(Suggestions, AreNoneForSamplesReadRightly) {
  tests::Program program;
  for (const tests::Sample& sample : tests::samples()) {
    const Selections selections = program.reading(sample);
    EXPECT_EQ(labels(suggestionsFor(selections, program.tools())), "")
        << sample.name << tryOnSource(selections, program.tools()).verdictText;
  }
}

TEST(Suggestions, KnowASampleByItsContent) {
  tests::Program program;
  std::vector<tests::Sample> all = tests::samples();
  all.push_back({"ALDR1.csv", source::GeodeticCsv, 0});
  for (const tests::Sample& sample : all) {
    const std::int16_t format =
        sample.format == source::CoordsLogNumberInDescription ? std::int16_t{source::CoordsLog} : sample.format;
    Selections selections =
        program.reading(tests::samplePath(sample.name), source::Keyboard, 4, false, AngleForm::DegreesMinutesSeconds);
    EXPECT_TRUE(takeSourceFile(selections, program.tools()).format) << sample.name;
    EXPECT_EQ(selections.run.sourceFormat, format) << sample.name;
    if (format == source::GeodeticCsv) continue;
    // The same as a suggestion, where another format finds no point.
    const std::int16_t other = format == source::Sdms ? source::BlueBook : source::Sdms;
    selections = program.reading(tests::samplePath(sample.name), other, 4, true, AngleForm::DegreesMinutesSeconds);
    EXPECT_TRUE(labels(suggestionsFor(selections, program.tools())).starts_with("Read as ")) << sample.name;
  }
  for (const std::string name : {"lmo_batch.csv", "geodetics_special.txt"}) {
    EXPECT_FALSE(recognizeContent(readSample(tests::samplePath(name)))) << name;
  }
}

struct Case {
  std::string what;
  std::string contents;
  std::int16_t format;
  std::int16_t code;
  bool metres;
  AngleForm form;
  std::string labels;
};

TEST(Suggestions, HelpWhatWasChosenWrongly) {
  constexpr AngleForm S = AngleForm::DegreesMinutesSeconds;
  constexpr AngleForm D = AngleForm::DecimalDegrees;
  const std::string degrees = tests::contentsOf(tests::samplePath("control.csv"));
  const std::string packed = "485649.01,-954724.16,A,1,,,,\n443520.19,-942317.39,B,2,,,,\n";
  const std::string south = "907553.363,2523547.767,A,1,,,,\n889337.282,2980350.432,B,2,,,,\n";
  const std::string numbered = "101,907553.363,2523547.767,987.15,A\n102,889337.282,2980350.432,1021.6,B\n";
  const Case cases[] = {
      {"decimal degrees", degrees, source::CommaDelimited, 0, false, S, "Read angles as decimal degrees"},
      {"packed", packed, source::CommaDelimited, 0, false, D, "Read angles as degrees, minutes and seconds"},
      {"degrees, taken for feet", degrees, source::CommaDelimited, 4, false, S,
       "Read as latitude and longitude in decimal degrees"},
      {"exchanged", "2523547.767,907553.363,A,1,,,,\n2980350.432,889337.282,B,2,,,,\n", source::CommaDelimited, 4,
       false, S, "Exchange the two coordinates"},
      {"another layout", numbered, source::CommaDelimited, 4, false, S, "Layout: Numbered"},
      {"another delimiter", "907553.363;2523547.767;A;1;;;;\n", source::CommaDelimited, 4, false, S,
       "Delimiter: \";\""},
      {"own", "$Tovak#4$ NAD83  (Feet)\n" + south, source::CommaDelimited, 0, false, S,
       "Source: State plane South, NAD83 in U.S. survey feet, NAD83"},
  };
  tests::Program program;
  program.layouts.push_back({.name = "Numbered", .fieldCodes = " 3~ 0~ 1~ 4~ 2~"});
  const tests::TemporaryFolder folder;
  for (const Case& c : cases) {
    Selections selections = program.reading(folder.write("points", c.contents), c.format, c.code, c.metres, c.form);
    const std::vector<Suggestion> suggestions = suggestionsFor(selections, program.tools());
    EXPECT_TRUE(labels(suggestions).starts_with(c.labels)) << c.what << ": " << labels(suggestions);
    if (suggestions.empty()) continue;
    suggestions.front().apply(selections);
    EXPECT_EQ(labels(suggestionsFor(selections, program.tools())), "") << c.what;
  }
}

TEST(Suggestions, NameSystemsWhereThePointsMayLie) {
  tests::Program program;
  // State plane South in metres, taken for feet.
  Selections selections = program.reading(tests::samplePath("vesko80_alignment_metric.txt"), source::Vesko80Column, 4,
                                          false, AngleForm::DegreesMinutesSeconds);
  const std::vector<Suggestion> suggestions = suggestionsFor(selections, program.tools());
  ASSERT_FALSE(suggestions.empty());
  EXPECT_LE(suggestions.size(), 3u);
  EXPECT_EQ(suggestions.front().label, "Source: State plane South, NAD83, metres");
  suggestions.front().apply(selections);
  EXPECT_EQ(row(selections.run.SourceProjectionCode, selections.run.source.projectionText), "4|4M");
}

TEST(Suggestions, AnOwnFileBringsItsForm) {
  tests::Program program;
  const tests::TemporaryFolder folder;
  const std::string head = "$Tovak#0-2011$ NAD83(2011)  (Meters)\n";
  const struct {
    std::string what;
    std::string contents;
    std::string labels;
  } cases[] = {
      {.what = "packed", .contents = "485649.01137,-954724.15930,A,1,,,,", .labels = "S"},
      {.what = "behind a point",
       .contents = "48.564901137,-95.472415930,A,1,,,,\n45.331457055,-92.315297252,B,2,,,,",
       .labels = "S"},
      {.what = "decimal degrees", .contents = "48.9469476,-95.7900443,A,1,,,,", .labels = "D"},
  };
  for (const auto& c : cases) {
    Selections selections = program.reading(folder.write("own.csv", head + c.contents + "\n"), source::Keyboard, 4,
                                            false, AngleForm::DegreesDecimalMinutes);
    selections.run.sourceDelimited.fieldCodes = " 3~ 1~ 0~";
    const TakenFile taken = takeSourceFile(selections, program.tools());
    EXPECT_EQ(row(taken.format, taken.system, selections.run.SourceProjectionCode,
                  static_cast<char>(selections.run.latLongForm), layoutOf(selections, Side::Source).fieldCodes),
              "1|1|0|" + c.labels + "|" + run::kStandardFieldCodes)
        << c.what;
  }
}

}  // namespace
}  // namespace tovak::selection
