// A preview shows what the run makes, as far as it goes, and leaves no trace.
#include "run/preview.h"

#include <algorithm>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "run/conversion_run.h"
#include "run/projection_code.h"
#include "selection/sample_files.h"
#include "support/row.h"
#include "support/temporary_folder.h"

namespace tovak::run {
namespace {

using selection::Selections;
using selection::Side;
using tests::row;

class AgreeingPerson final : public Person {
 public:
  void show(const Message& /*message*/) override {}
  bool confirm(const Message& /*question*/) override { return true; }
  bool leaveBatchMode() override { return false; }
  bool chooseTargetOptions(TargetOptions /*options*/) override { return true; }
};

/// The target in a system that its format takes.
void chooseTarget(Selections& selections, const FormatTables& formats, std::int16_t format, const std::string& name,
                  std::int16_t code = 4) {
  selection::nameFile(selections, Side::Target, name);
  selection::pickProjection(selections, Side::Target, code);
  selection::chooseUnit(selections, Side::Target, true);
  selection::chooseTargetFormat(selections, formats, format);
}

std::string withoutBreaks(std::string text) {
  std::erase(text, '\n');
  return text;
}

/// Whether the text holds the figure; fixed columns leave out the points and blanks of some.
bool holds(const std::string& text, std::string figure) {
  if (withoutBreaks(text).find(figure) != std::string::npos) return true;
  std::erase_if(figure, [](char c) { return c == '.' || c == ' '; });
  return text.find(figure) != std::string::npos;
}

TEST(Preview, IsTheFileThatTheRunWrites) {
  tests::Program program;
  const tests::TemporaryFolder folder;
  for (const tests::Sample& sample : tests::samples()) {
    for (std::int16_t format = 0; format < static_cast<std::int16_t>(program.formats.targets.size()); ++format) {
      if (target::isAgency(format)) continue;
      for (const std::int16_t code : {std::int16_t{4}, run::kLatLongNad83}) {
        const std::string what =
            sample.name + " to " + std::string(program.formats.targets[static_cast<std::size_t>(format)].name);
        const std::string name = folder.file("target.txt");
        Selections selections = program.reading(sample);
        // Every target in lengths and in angles, where it has both.
        chooseTarget(selections, program.formats, format, name, code);
        selections.run.reportEnabled = format == target::ScreenOnly;
        selections.run.reportFileName = folder.file("report");
        const RunSettings settings = selection::runSettings(selections, program.formats);

        const Preview preview = previewRun(settings, *program.engine, program.formats);
        RunSettings ran = settings;
        AgreeingPerson person;
        const RunResult result = convert(ran, *program.engine, program.formats, {.person = person});

        if (preview.problem) {
          EXPECT_EQ(preview.problem->text, result.MessageText) << what;
          EXPECT_TRUE(code == 0 && preview.rows.empty()) << what;
          continue;
        }
        EXPECT_GT(preview.rows.size(), 0u) << what << preview.verdictText;
        EXPECT_TRUE(preview.complete) << what;
        EXPECT_EQ(preview.targetText, format == target::ScreenOnly ? "" : tests::contentsOf(result.targetName)) << what;
        EXPECT_EQ(row(preview.counts.converted, recordsSkipped(preview.counts), recordsPassedOver(preview.counts)),
                  row(result.counts.converted, recordsSkipped(result.counts), recordsPassedOver(result.counts)))
            << what;
        EXPECT_EQ(doubtLines(preview.counts.doubts), doubtLines(result.counts.doubts)) << what;
        EXPECT_EQ(preview.verdict == Verdict::Good,
                  result.counts.converted == preview.rows.size() && !anyDoubt(result.counts.doubts) && !preview.problem)
            << what;
        if (format == target::ScreenOnly) continue;
        for (const PreviewRow& r : preview.rows) {
          const std::string bytes = preview.targetText.substr(r.targetBegin, r.targetEnd - r.targetBegin);
          for (const std::string& figure : {r.target.northing, r.target.easting, r.target.elevation}) {
            EXPECT_TRUE(holds(bytes, figure)) << what << ": " << figure << " in " << bytes;
          }
        }
      }
    }
  }
}

TEST(Preview, OfTheControlPointsIsTheSampleOfATarget) {
  tests::Program program;
  program.formats.report.today = [] { return text::Date{2026, 11, 21}; };
  for (const auto& [format, name] :
       {std::pair{target::Kml, "control.kml"}, std::pair{target::GeoJson, "control.geojson"},
        std::pair{target::LandXml, "control.xml"}, std::pair{target::Dxf, "control.dxf"}}) {
    Selections selections = program.reading(tests::samples()[1]);
    chooseTarget(selections, program.formats, format, name);
    if (format >= target::LandXml) selection::chooseUnit(selections, Side::Target, false);
    EXPECT_EQ(
        previewRun(selection::runSettings(selections, program.formats), *program.engine, program.formats).targetText,
        tests::contentsOf(tests::samplePath(name)));
  }
}

TEST(Preview, TellsARowAPoint) {
  tests::Program program;
  const tests::TemporaryFolder folder;
  const std::string name = folder.write("points.csv",
                                        "northing,easting\n"
                                        "907553.363,2523547.767,Depot Yard,,987.15,\n"
                                        "9,8,nowhere,,,\n"
                                        "1354277.23,2492182.717,Ferry Landing,7,,\n");
  Selections selections = program.reading(name, source::CommaDelimited, 4, false, text::AngleForm::DecimalDegrees);
  selections.run.NextPointNumber = 31;
  chooseTarget(selections, program.formats, target::CommaDelimited, "nowhere");
  const Preview preview =
      previewRun(selection::runSettings(selections, program.formats), *program.engine, program.formats);
  ASSERT_EQ(preview.rows.size(), 3u);
  const PreviewRow& depot = preview.rows[0];
  EXPECT_EQ(row(depot.line, fateName(depot.fate), depot.number, depot.description, depot.northing, depot.easting,
                depot.target.elevation, depot.sourceText),
            "2|Converted|31|Depot Yard|907553.363|2523547.767|300.88|907553.363,2523547.767,Depot Yard,,987.15,");
  // Depot Yard's published position.
  ASSERT_TRUE(depot.place);
  EXPECT_NEAR(depot.place->latitude, 44.588941576, 1e-8);
  EXPECT_NEAR(depot.place->longitude, -94.388164514, 1e-8);
  EXPECT_EQ(row(depot.convergence.empty(), depot.scaleFactor.empty()), "0|0");
  EXPECT_EQ(row(fateName(preview.rows[1].fate), preview.rows[1].number, preview.rows[1].target.northing),
            "Refused|32|");
  EXPECT_EQ(fateName(preview.rows[2].fate), "Doubtful");
  EXPECT_TRUE(preview.rows[2].reason.starts_with("outside the usual area of ")) << preview.rows[2].reason;
  EXPECT_TRUE(preview.verdictText.starts_with("1 of 3 refused: ")) << preview.verdictText;
  EXPECT_EQ(selections.run.NextPointNumber, 31);
  EXPECT_EQ(folder.names(), std::vector<std::string>{"points.csv"});
}

TEST(Preview, SaysWhatStandsInTheWay) {
  tests::Program program;
  Selections selections = program.reading(tests::samples()[1]);
  chooseTarget(selections, program.formats, target::CommaDelimited, "nowhere");
  const auto preview = [&] {
    return previewRun(selection::runSettings(selections, program.formats), *program.engine, program.formats);
  };
  EXPECT_EQ(preview().verdictText,
            "12 of 12 records would be converted; 8 outside the usual area of State plane South, NAD83");
  selection::chooseLatLongForm(selections, text::AngleForm::DegreesMinutesSeconds);
  EXPECT_TRUE(preview().verdictText.starts_with("10 of 12 refused: ")) << preview().verdictText;
  selection::chooseLatLongForm(selections, text::AngleForm::DecimalDegrees);
  selection::nameFile(selections, Side::Target, tests::samplePath("control.csv"));
  // The points can be shown all the same.
  EXPECT_EQ(row(preview().verdictText, preview().rows.size()), "Source file has same name as target file.|12");
  chooseTarget(selections, program.formats, target::Vesko80Column, "nowhere");
  selection::pickProjection(selections, Side::Target, 0);
  EXPECT_EQ(row(preview().verdictText.substr(0, 38), preview().rows.size()),
            "Vesko 80 column format not valid with |0");
}

TEST(Preview, ReadsNoMoreThanTheBeginning) {
  tests::Program program;
  const tests::TemporaryFolder folder;
  std::string lines;
  for (int i = 0; i < 300; ++i) lines += "907553.363,2523547.767,A,1,1.5,\n";
  const std::string many = folder.write("many", lines);
  const std::string fifo = folder.file("fifo");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  const std::string huge = folder.write("huge", "907553.363,2523547.767,A,1,1.5,\n");
  std::filesystem::resize_file(huge, std::uintmax_t{4} << 30);  // zeros without a line end
  const auto preview = [&](const std::string& name) {
    Selections selections = program.reading(name, source::CommaDelimited, 4, false, text::AngleForm::DecimalDegrees);
    chooseTarget(selections, program.formats, target::GeopakXy, "nowhere");
    return previewRun(selection::runSettings(selections, program.formats), *program.engine, program.formats);
  };
  const Preview first = preview(many);
  EXPECT_EQ(row(first.verdictText, first.complete, first.targetText.find("$ END") == std::string::npos),
            "200 of the first 200 records would be converted|0|1");
  EXPECT_EQ(row(preview(fifo).rows.size(), preview(fifo).verdictText),
            "0|" + fifo + " is no ordinary file and is not looked into.");
  EXPECT_EQ(preview("/dev/zero").verdictText, "/dev/zero is no ordinary file and is not looked into.");
  EXPECT_EQ(row(preview(huge).rows.size(), preview(huge).complete), "1|0");
}

}  // namespace
}  // namespace tovak::run
