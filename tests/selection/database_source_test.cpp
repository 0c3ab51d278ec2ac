#include "selection/database_source.h"

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/format_index.h"
#include "selection/database_choices.h"
#include "support/temporary_folder.h"

namespace tovak::selection {
namespace {

using run::Adjustment;
using run::Answer;
namespace S = run::source;

std::string textsOf(const ChoiceList& list) {
  std::string texts;
  for (int i = 0; i < static_cast<int>(list.texts.size()); ++i)
    texts.append(i == list.chosen ? "*" : "").append(list.texts[static_cast<std::size_t>(i)]) += '|';
  return texts;
}

TEST(DatabaseSource, AsksWhichSheetsAreMeantAndBecomesTheKeyboardWithoutAny) {
  const tests::TemporaryFolder folder;
  for (const char* name : {"ELMW1.csv", "ELMW2.csv", "LONE1.csv", "OAKH1.csv", "OAKH2.csv", "OAKH3.csv"})
    folder.write(name, "A,,,,,,,,,,,,,Lake - North,1,45.1,93.1\n");
  folder.write("points.txt", "");
  folder.write("LONG1.csv", std::string((1 << 20) + 1, 'x'));
  const std::string both = "2 map sheets for this county.\nDo you want to process both?";
  const std::string three = "3 map sheets for this county.\nDo you want to process all 3?";
  const std::string overlong = std::string(300, 'x') + ".csv";
  const struct {
    std::string file;
    Answer answer;
    std::string question;
    std::vector<std::string> sheets;  ///< none: the keyboard
    std::string shownBehind;
    std::string problem = {};
    bool missing = false;
  } cases[] = {{"LONE1.csv", Answer::Cancel, "", {"LONE1.csv"}, ""},
               {"ELMW2.csv", Answer::Yes, both, {"ELMW1.csv", "ELMW2.csv"}, "  (+1 more)"},
               {"./ELMW2.csv", Answer::No, both, {"./ELMW2.csv"}, ""},
               {"OAKH3.csv", Answer::Yes, three, {"OAKH1.csv", "OAKH2.csv", "OAKH3.csv"}, "  (+2 more)"},
               {"OAKH1.csv", Answer::Cancel, three, {}, ""},
               {"points.txt", Answer::Yes, "", {}, "", "The source file is not a CSV file."},
               {"LONG1.csv", Answer::Yes, "", {}, "", folder.file("LONG1.csv") + ": line 1 is longer than 1 MiB"},
               {overlong, Answer::Yes, "", {}, "", folder.file(overlong) + ": File name too long"},
               {"gone.csv", Answer::Yes, "", {}, "", "", true}};
  const run::FormatTables formats = formats::formatTables();
  Selections selections;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file);
    selections.run.source.fileName = " " + folder.file(c.file);
    selections.run.adjustment = Adjustment::Nad83_1996;
    std::string question;
    const DatabaseOutcome outcome = chooseDatabaseSource(selections, formats, [&](const run::Message& asked) {
      question = asked.title + ": " + asked.text;
      return c.answer;
    });
    EXPECT_EQ(question, c.question.empty() ? "" : "Multiple Map Sheets: The current folder has " + c.question);
    EXPECT_EQ(outcome.missing, c.missing);
    EXPECT_EQ(outcome.problem ? outcome.problem->text : "", c.problem);
    EXPECT_EQ(selections.run.sourceFormat, c.sheets.empty() ? S::Keyboard : S::GeodeticCsv);
    EXPECT_EQ(selections.run.adjustment, c.sheets.empty() ? Adjustment::Nad83_1996 : Adjustment::None);
    EXPECT_EQ(textsOf(selections.countyZones), "*North|") << "the lists stay as they were";
    if (c.sheets.empty()) continue;
    std::vector<std::string> sheets;
    for (const std::string& sheet : c.sheets) sheets.push_back(folder.file(sheet));
    EXPECT_EQ(selections.run.options.geodeticCsv.sheets, sheets);
    EXPECT_EQ(databaseFileText(selections), folder.file(c.file) + c.shownBehind);
  }
}

TEST(DatabaseSource, OffersWhatTheSheetsHaveAndTakesTheChoices) {
  Selections selections;
  run::GeodeticCsvChoice& choice = selections.run.options.geodeticCsv;
  formats::database::SheetScan scan;
  fillDatabaseLists(selections, scan);
  EXPECT_EQ(textsOf(selections.horizontals) + textsOf(selections.verticals) + textsOf(selections.countyZones),
            "Reference Coords.|");
  EXPECT_TRUE(!choice.zonesOffered && choice.vertical == 0 && databaseProjectionLine(selections).empty());

  scan.present.fill(true);
  const std::tuple<std::string, std::array<bool, 4>, std::string> zones[] = {
      {"Elm", {false, false, false, true}, "*North Shore|"},
      {"lake", {false, false, false, true}, "Lake County|North Shore|"},
      {"Lake", {true, true, true, true}, "Lake County|North|Central|South|North Shore|"}};
  for (const auto& [county, present, texts] : zones) {
    scan.countyName = county;
    scan.zones = present;
    fillDatabaseLists(selections, scan);
    EXPECT_EQ(textsOf(selections.countyZones), texts);
    EXPECT_EQ(choice.zoneSuffix, county == "Elm" ? " - Lake (North Shore)" : "");
  }
  EXPECT_EQ(textsOf(selections.verticals), "*NAVD88|NGVD29|");
  const std::tuple<const char*, int, Adjustment, int, const char*> references[] = {
      {"NAD83(2011) ADJ.", 1, Adjustment::Nad83_2011, 0, "83"},
      {"NAD83(2007) ADJ.", 3, Adjustment::Nad83_2007, 0, "83"},
      {"NAD83(1996) ADJ.", 5, Adjustment::Nad83_1996, 0, "83"},
      {"NAD83(1986) ADJ.", 7, Adjustment::Nad83_1986, 0, "83"},
      {"Reference Coords.", 11, Adjustment::None, 0, "83"},
      {"NAD27", 9, Adjustment::None, 103, "27"}};
  std::string list;
  for (const auto& [text, code, adjustment, projection, digits] : references) {
    list.append(text) += '|';
    chooseHorizontalReference(selections, text);
    EXPECT_EQ(choice.horizontal, code);
    EXPECT_EQ(selections.run.adjustment, adjustment);
    EXPECT_EQ(databaseProjectionLine(selections),
              "Projection = " + std::to_string(projection) + "    (Latitude and Longitude : NAD" + digits + ")");
  }
  EXPECT_EQ(textsOf(selections.horizontals), list.insert(list.find("NAD27"), "*"));
  for (const char* text : {"NGVD29", "sea level"}) chooseVerticalReference(selections, text);
  EXPECT_TRUE(choice.vertical == 14 && selections.run.verticalDatum == run::VerticalDatum::Ngvd29);
  for (const auto& [text, suffix] : {std::pair{"North", " - North"},
                                     {"Central", " - Central"},
                                     {"South", " - South"},
                                     {"North Shore", " - Lake (North Shore)"},
                                     {"Lake County", ""}}) {
    chooseCountyZone(selections, text);
    EXPECT_EQ(choice.zoneSuffix, suffix);
  }
}

}  // namespace
}  // namespace tovak::selection
