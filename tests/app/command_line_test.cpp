#include "app/command_line.h"

#include <gtest/gtest.h>

#include "app/command_items.h"
#include "formats/format_tables.h"
#include "run/format_index.h"
#include "support/temporary_folder.h"

namespace tovak::app {
namespace {

CommandLine parse(const std::string& line) {
  return parseCommandLine(line, formats::formatTables());
}

class CommandLineTest : public testing::Test {
 protected:
  CommandLine only(const std::string& items) { return parse(folder.write("in.csv", "") + " out.csv " + items); }
  /// A line that is complete, with more items.
  CommandLine with(const std::string& items) { return only("-B -SF2 -SP1 -SUE -TF2 -TP5 -TUE " + items); }

  const tests::TemporaryFolder folder;
};

/// What a line selects, in one text.
std::string selection(const CommandLine& line) {
  const run::RunSettings& s = line.settings;
  std::string text = "-" + std::to_string(s.BatchMode);
  for (const int number : {int{s.sourceFormat}, int{s.targetFormat}}) text += ' ' + std::to_string(number);
  text += ' ' + s.source.projectionText + ' ' + s.target.projectionText + ' ' + static_cast<char>(s.latLongForm);
  text += std::string(s.latLongFormChosen ? "+ " : " ") + std::to_string(static_cast<int>(s.accuracy));
  return text + ' ' + std::to_string(static_cast<int>(s.adjustment)) + line.MessageText;
}

TEST_F(CommandLineTest, FillsTheSettings) {
  using Row = std::pair<const char*, const char*>;
  const Row cases[] = {Row("", "-1 1 1 0 4 S 0 0"), Row("-q", "-2 1 1 0 4 S 0 0"), Row("-sp269", "-1 1 1 268 4 S 0 0"),
                       Row("-SF3x -F6", "-1 2 1 0 4 S 5 0"), Row("-TF16 -SP2 -SUm", "-1 1 15 1M 4 S 0 0"),
                       Row("-TP3 -TUMetric", "-1 1 1 0 2M S 0 0"), Row("-SUE -SUM -SUx", "-1 1 1 0M 4 S 0 0"),
                       Row("-X5 -SZ9 -T - third.csv \"\"", "-1 1 1 0 4 S 0 0"),
                       // Forms of latitudes and longitudes.
                       Row("-A1", "-1 1 1 0 4 S+ 0 0"), Row("-A2", "-1 1 1 0 4 S+ 0 0"), Row("-A3", "-1 1 1 0 4 S 0 0"),
                       Row("-A4", "-1 1 1 0 4 D 0 0"), Row("-a5", "-1 1 1 0 4 M 0 0"),
                       // The year counts on the last place only.
                       Row("-Y86 -B", "-1 1 1 0 4 S 0 0"), Row("-Y86x", "-1 1 1 0 4 S 0 0"),
                       Row("-Y 86 ", "-1 1 1 0 4 S 0 1")};
  for (const auto& [items, expected] : cases) EXPECT_EQ(selection(with(items)), expected) << items;

  const char* const years[][4] = {
      {"7"}, {"8", "86", "1986"}, {"9", "96", "1996"}, {"0", "07", "2007"}, {"1", "11", "2011"}};
  for (int adjustment = 0; adjustment < 5; ++adjustment) {
    for (const char* const* year = years[adjustment]; *year != nullptr; ++year) {
      EXPECT_EQ(static_cast<int>(with(std::string("-y") + *year).settings.adjustment), adjustment) << *year;
    }
  }
  // The projection of a target format gives way to one that is named.
  const Row targets[] = {Row("-TF14 -TUE", "0"), Row("-TF13 -TUM", "0M"), Row("-TF7 -TUE", "0"),
                         // A projection that is named, wherever.
                         Row("-TF17 -TUE", "0M"), Row("-TP3 -TF14 -TUE", "2"), Row("-TF14 -TUM -TP104", "103M")};
  for (const auto& [items, text] : targets) {
    EXPECT_EQ(only("-B -SF2 -SP1 -SUE " + std::string(items)).settings.target.projectionText, text) << items;
  }
  const CommandLine report = with("-R\"my report.rpt \"");
  EXPECT_EQ(report.settings.reportFileName, "my report.rpt ");
  EXPECT_TRUE(report.reportFileNamed && report.settings.reportEnabled);
  // Without a name it is that of the day.
  for (const char* items : {"", "-R", "-R\" \""}) {
    EXPECT_FALSE(with(items).reportFileNamed || with(items).settings.reportEnabled) << items;
  }
}

TEST_F(CommandLineTest, BringsWithAFormatWhatItBringsInTheWindow) {
  const std::tuple<const char*, int, int, const char*, char> cases[] = {
      {"-SF9", run::source::GeodeticsSpecial, run::target::GeodeticsSpecial, "1M", 'S'},
      {"-TP3 -TUM -SF11", run::source::LmoBatch, run::target::LmoBatch, "2M", 'S'},
      {"-TF12", run::source::LmoBatch, run::target::LmoBatch, "1", 'S'},
      {"-A1 -SF12", run::source::Maptech, 0, "1", 'D'},
      {"-A4 -SF13", run::source::WayPointsPlus, 0, "1", 'S'}};
  for (const auto& [items, source, target, system, form] : cases) {
    const run::RunSettings s = only(items).settings;
    EXPECT_TRUE(s.sourceFormat == source && s.targetFormat == target && static_cast<char>(s.latLongForm) == form)
        << items;
    EXPECT_EQ(s.target.projectionText, system) << items;
  }
}

TEST_F(CommandLineTest, ReportsWhatIsImproper) {
  constexpr const char* kAgency =
      "Vesko Specific Batch Files for Database Applications\ncannot be run automatically from the command line.";
  const run::FormatTables formats = formats::formatTables();
  const std::string pastSources = "-SF" + std::to_string(formats.sources.size() + 1);
  const std::string pastTargets = "-TF" + std::to_string(formats.targets.size() + 1);
  const std::tuple<std::string, const char*> cases[] = {
      {"-SF1", "Batch Mode Data Source Cannot Be Keyboard."},
      {"-SF14", "Batch Mode Data Source Cannot Be a CSV File."},
      {pastSources, "Improper Source File Format Was Specified."},
      {"-SF0", "Source File Format Was Not Specified."},
      {"-TF1", "Batch Mode Data Target Cannot Be Screen."},
      {pastTargets, "Improper Target File Format Was Specified."},
      {"-SP270", "Improper Source Projection Was Specified."},
      {"-SP264", "Batch Mode Source Projection Cannot Be User Defined."},
      {"-SP-5", "Source File Projection Was Not Specified."},
      {"-TP270", "Improper Target Projection Was Specified."},
      {"-TP264", "Batch Mode Target Projection Cannot Be User Defined."},
      {"-SPx", "Number Cannot Be Read: -SPx"},
      {"-TF", "Number Cannot Be Read: -TF"},
      {"-TP99999 -SF", "Number Cannot Be Read: -TP99999"},
      {"-SFx \"-Q\" -Rx\"-B\" -SF9", "Number Cannot Be Read: -SFx"},
      {"-F7", "Improper Data Accuracy Was Specified."},
      {"-F0 -A6", "Improper Data Accuracy Was Specified.\nImproper Latitude/Longitude Form Was Specified."},
      {"-SF9", kAgency},
      {"-SF11 -SF2 -SP270", kAgency},
      // The target's option marks an agency run behind the source formats 10 to 12.
      {"-SF12 -TF2", kAgency},
      {"-TF2 -SF12", ""},
      {"-SF8 -TF2", ""}};
  for (const auto& [items, problem] : cases) EXPECT_EQ(with(items).MessageText, problem) << items;
  EXPECT_EQ(parse("-B").MessageText,
            "Source File Was Not Specified.\nTarget File Was Not Specified.\n"
            "Source File Units Were Not Specified.\nTarget File Units Were Not Specified.\n"
            "Source File Format Was Not Specified.\nTarget File Format Was Not Specified.\n"
            "Source File Projection Was Not Specified.\nTarget File Projection Was Not Specified.");
  EXPECT_EQ(only("-B -SF2 -SP1 -SUE -TF2 -TP5").MessageText, "Target File Units Were Not Specified.");
  EXPECT_EQ(parse("-SPx -F9 -q").settings.BatchMode, 2);
  const CommandLine missing = parse("/nowhere/in.csv out.csv -Q -SUE -TUE -SF2 -TF2 -SP1 -TP2");
  EXPECT_EQ(missing.MessageText + missing.settings.source.fileName, "Source File Does Not Exist.");
}

TEST_F(CommandLineTest, FindsNamesAndTheWorkingFolder) {
  const std::string spaced = folder.write("a b.csv", "");
  const CommandLine quoted = parse("  \"" + spaced + "\"  \"to here.csv\"-SUM ignored");
  EXPECT_EQ(quoted.settings.source.fileName, spaced);
  EXPECT_EQ(quoted.settings.target.fileName, "to here.csv");
  EXPECT_TRUE(quoted.settings.source.metres);
  EXPECT_EQ(quoted.workingFolder, folder.path());
  EXPECT_EQ(parse(folder.path().string()).workingFolder, folder.path());
  EXPECT_EQ(parse("/nowhere/in.csv").workingFolder, "");
  EXPECT_EQ(parse("\"unclosed name").settings.target.fileName, "");
  EXPECT_EQ(parse("in.csv \"ends blank \" ").settings.target.fileName, "ends blank ");
}

TEST(JoinArguments, QuotesWhatHoldsBlanks) {
  EXPECT_EQ(joinArguments({}), "");
  EXPECT_EQ(joinArguments({"a b.csv", "-B", "-Rmy report.rpt", "-rx y"}),
            "\"a b.csv\" -B -R\"my report.rpt\" -r\"x y\"");
  EXPECT_EQ(joinArguments({"ends blank ", "-R\"x.rpt\""}), "\"ends blank \" -R\"x.rpt\"");
}

TEST(FaultyArgument, IsOneWithQuotesThatWouldNotBeOneValue) {
  for (const char* faulty : {"a \"b", "\"a b\"", "-R\"a b\"", "\"a", "\"a\"b", "-r\"a"})
    EXPECT_EQ(faultyArgument({"good.csv", faulty, "a \" later one"}), faulty);
  EXPECT_EQ(faultyArgument({"a b", "\"a\"", "-R\"a\"", "a\"b", ""}), "");
}

TEST(HelpSwitch, CountsAnywhereButInTheFoldersOfAFileThatIsThere) {
  using namespace std::string_literals;
  const tests::TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "my-home");
  const std::string there = folder.write("my-home/in.csv", ""), named = folder.write("my-home/in-house.csv", "");
  const std::string missing = folder.file("my-home/out.csv"), home = folder.file("my-home");
  for (const std::string& line :
       {"-h"s, "a b -H"s, "--help"s, "x \"my -house.csv\""s, named, there + " " + missing, home})
    EXPECT_TRUE(itemAskingForHelp(line)) << line;
  for (const std::string& line : {there + " -R" + there, ""s, "h in.csv - h -B"s})
    EXPECT_FALSE(itemAskingForHelp(line)) << line;
}

}  // namespace
}  // namespace tovak::app
