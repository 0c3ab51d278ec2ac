#include "app/command_line.h"

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "support/temporary_folder.h"

namespace tovak::app {
namespace {

using run::Adjustment;
using text::AngleForm;

CommandLine parse(const std::string& line) {
  return parseCommandLine(line, formats::formatTables());
}

/// A line that is complete, with one more item.
class CompleteLine : public testing::Test {
 protected:
  CommandLine with(const std::string& items) {
    return parse(folder_.write("in.csv", "") + " out.csv -B -SF2 -SP1 -SUE -TF2 -TP5 -TUE " + items);
  }
  CommandLine only(const std::string& items) { return parse(folder_.write("in.csv", "") + " out.csv " + items); }

 private:
  tests::TemporaryFolder folder_;
};

TEST_F(CompleteLine, FillsTheSettings) {
  const CommandLine line = with("");
  EXPECT_EQ(line.MessageText, "");
  EXPECT_EQ(line.settings.BatchMode, 1);
  EXPECT_EQ(line.settings.sourceFormat, 1);
  EXPECT_EQ(line.settings.targetFormat, 1);
  EXPECT_EQ(line.settings.SourceProjectionCode, 0);
  EXPECT_EQ(line.settings.TargetProjectionCode, 4);
  EXPECT_EQ(line.settings.target.fileName, "out.csv");
  EXPECT_EQ(line.settings.latLongForm, AngleForm::DegreesMinutesSeconds);
  EXPECT_EQ(line.settings.accuracy, 0);
  EXPECT_EQ(line.settings.adjustment, Adjustment::None);
  EXPECT_FALSE(line.settings.reportEnabled);
}

TEST_F(CompleteLine, TakesEachOption) {
  EXPECT_EQ(with("-q").settings.BatchMode, 2);
  EXPECT_EQ(with("-sp269").settings.SourceProjectionCode, 268);
  EXPECT_EQ(with("-SF3x").settings.sourceFormat, 2);
  EXPECT_EQ(with("-TF16").settings.targetFormat, 15);
  EXPECT_EQ(with("-F6").settings.accuracy, 5);
  EXPECT_EQ(with("-SP2 -SUm").settings.source.projectionText, "1M");
  EXPECT_EQ(with("-TP3 -TUMetric").settings.target.projectionText, "2M");
  EXPECT_EQ(with("-SUM -SUE -SUx").settings.source.projectionText, "0");
  EXPECT_EQ(with("-SP1 -SUM").settings.source.projectionText, "0M");
  EXPECT_EQ(with("-X5 -SZ9 -T - third.csv \"\"").MessageText, "");

  const CommandLine report = with("-R\"my report.rpt\" -Y86");
  EXPECT_EQ(report.settings.reportFileName, "my report.rpt");
  EXPECT_TRUE(report.reportFileNamed && report.settings.reportEnabled);
  EXPECT_EQ(report.settings.adjustment, Adjustment::Nad83_1986);
}

TEST_F(CompleteLine, KnowsTheLatLongForms) {
  const struct {
    const char* option;
    AngleForm form;
    bool chosen;
  } cases[] = {{"-A1", AngleForm::DegreesMinutesSeconds, true},
               {"-A2", AngleForm::DegreesMinutesSeconds, true},
               {"-A3", AngleForm::DegreesMinutesSeconds, false},
               {"-A4", AngleForm::DecimalDegrees, false},
               {"-a5", AngleForm::DegreesDecimalMinutes, false}};
  for (const auto& c : cases) {
    EXPECT_EQ(with(c.option).settings.latLongForm, c.form) << c.option;
    EXPECT_EQ(with(c.option).settings.latLongFormChosen, c.chosen) << c.option;
  }
}

TEST_F(CompleteLine, TakesTheYearOnTheLastPlaceOnly) {
  const struct {
    const char* items;
    Adjustment adjustment;
  } cases[] = {
      {"-Y8", Adjustment::Nad83_1986}, {"-Y86 ", Adjustment::Nad83_1986}, {"-y1986", Adjustment::Nad83_1986},
      {"-Y9", Adjustment::Nad83_1996}, {"-Y96", Adjustment::Nad83_1996},  {"-Y1996", Adjustment::Nad83_1996},
      {"-Y0", Adjustment::Nad83_2007}, {"-Y07", Adjustment::Nad83_2007},  {"-Y2007", Adjustment::Nad83_2007},
      {"-Y1", Adjustment::Nad83_2011}, {"-Y11", Adjustment::Nad83_2011},  {"-Y2011", Adjustment::Nad83_2011},
      {"-Y86 -B", Adjustment::None},   {"-Y 86", Adjustment::Nad83_1986}, {"-Y7", Adjustment::None},
      {"-Y86x", Adjustment::None},
  };
  for (const auto& c : cases) EXPECT_EQ(with(c.items).settings.adjustment, c.adjustment) << c.items;
}

TEST_F(CompleteLine, ForcesTheProjectionOfATargetFormatUnlessOneIsNamed) {
  const struct {
    const char* items;
    const char* text;
  } cases[] = {{"-TF14 -TUE", "0"},
               {"-TF13 -TUM", "0M"},
               {"-TF7 -TUE", "0"},
               {"-TP3 -TF14 -TUE", "2"},
               {"-TF14 -TUM -TP104", "103M"}};
  for (const auto& c : cases) {
    const CommandLine line = only("-B -SF2 -SP1 -SUE " + std::string(c.items));
    EXPECT_EQ(line.MessageText, "") << c.items;
    EXPECT_EQ(line.settings.target.projectionText, c.text) << c.items;
  }
}

TEST_F(CompleteLine, ReportsWhatIsImproper) {
  const struct {
    const char* items;
    const char* problem;
  } cases[] = {
      {"-SF1", "Batch Mode Data Source Cannot Be Keyboard."},
      {"-SF14", "Batch Mode Data Source Cannot Be a CSV File."},
      {"-SF15", "Improper Source File Format Was Specified."},
      {"-SF0", "Source File Format Was Not Specified."},
      {"-TF1", "Batch Mode Data Target Cannot Be Screen."},
      {"-TF17", "Improper Target File Format Was Specified."},
      {"-SP270", "Improper Source Projection Was Specified."},
      {"-SP264", "Batch Mode Source Projection Cannot Be User Defined."},
      {"-SP-5", "Source File Projection Was Not Specified."},
      {"-TP270", "Improper Target Projection Was Specified."},
      {"-TP264", "Batch Mode Target Projection Cannot Be User Defined."},
      {"-SPx", "Number Cannot Be Read: -SPx"},
      {"-TF", "Number Cannot Be Read: -TF"},
      {"-SP 3", "Number Cannot Be Read: -SP"},
      {"-TP99999", "Number Cannot Be Read: -TP99999"},
      {"-A6", "Improper Latitude/Longitude Form Was Specified."},
      {"-F7", "Improper Data Accuracy Was Specified."},
      {"-F0 -A0", "Improper Data Accuracy Was Specified.\nImproper Latitude/Longitude Form Was Specified."},
      {"-SF9",
       "Vesko Specific Batch Files for Database Applications\ncannot be run automatically from the command line."},
      {"-SF11 -SF2 -SP270",
       "Vesko Specific Batch Files for Database Applications\ncannot be run automatically from the command line."},
      // The target's option marks an agency run behind the source formats 10 to 12.
      {"-SF12 -TF2",
       "Vesko Specific Batch Files for Database Applications\ncannot be run automatically from the command line."},
      {"-TF2 -SF12", ""},
      {"-SF8 -TF2", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(with(c.items).MessageText, c.problem) << c.items;
}

TEST(CommandLine, CollectsEveryProblemInOrder) {
  EXPECT_EQ(parse("-B").MessageText,
            "Source File Was Not Specified.\nTarget File Was Not Specified.\n"
            "Source File Units Were Not Specified.\nTarget File Units Were Not Specified.\n"
            "Source File Format Was Not Specified.\nTarget File Format Was Not Specified.\n"
            "Source File Projection Was Not Specified.\nTarget File Projection Was Not Specified.");
  const CommandLine missing = parse("/nowhere/in.csv out.csv -Q -SUE -TUE -SF2 -TF2 -SP1 -TP2");
  EXPECT_EQ(missing.MessageText, "Source File Does Not Exist.");
  EXPECT_EQ(missing.settings.source.fileName, "");
}

TEST(CommandLine, FindsNamesAndTheWorkingFolder) {
  const tests::TemporaryFolder folder;
  const std::string spaced = folder.write("a b.csv", "");
  const CommandLine quoted = parse("  \"" + spaced + "\"  \"to here.csv\"-SUM ignored");
  EXPECT_EQ(quoted.settings.source.fileName, spaced);
  EXPECT_EQ(quoted.settings.target.fileName, "to here.csv");
  EXPECT_TRUE(quoted.settings.source.metres);
  EXPECT_EQ(quoted.workingFolder, folder.path());
  EXPECT_EQ(parse(folder.path().string()).workingFolder, folder.path());
  EXPECT_EQ(parse("/nowhere/in.csv").workingFolder, "");
  EXPECT_EQ(parse("\"unclosed name").settings.target.fileName, "");
}

TEST(JoinArguments, QuotesWhatHoldsBlanks) {
  const struct {
    std::vector<std::string> arguments;
    const char* line;
  } cases[] = {
      {{}, ""},
      {{"in.csv", "-B"}, "in.csv -B"},
      {{"a b.csv", "-Rmy report.rpt", "-rx y"}, "\"a b.csv\" -R\"my report.rpt\" -r\"x y\""},
      {{"-R\"my report.rpt\"", "\"a b\""}, "-R\"my report.rpt\" \"a b\""},
  };
  for (const auto& c : cases) EXPECT_EQ(joinArguments(c.arguments), c.line);
}

TEST(AsksForHelp, AnywhereInEitherCase) {
  for (const char* line : {"-h", "-H", "a b -h", "my-house.csv", "--help"}) EXPECT_TRUE(asksForHelp(line)) << line;
  for (const char* line : {"", "h", "in.csv - h", "-B"}) EXPECT_FALSE(asksForHelp(line)) << line;
}

}  // namespace
}  // namespace tovak::app
