#include <gtest/gtest.h>

#include "run/conversion_run.h"
#include "run/projection_code.h"
#include "selection/database_choices.h"
#include "selection/database_source.h"
#include "selection/job_file.h"
#include "selection/job_use.h"
#include "selection/sample_files.h"
#include "support/program_fixture.h"
#include "support/scripted_person.h"

namespace tovak::app {
namespace {

using selection::Selections;
using selection::Side;
using tests::contentsOf;

class Jobs : public tests::ProgramFixture {
 protected:
  Jobs() { std::filesystem::create_directories(folder.path() / "AppData" / "QrAppsData"); }

  std::string save(const std::string& name, const run::RunSettings& settings) {
    const text::Result<selection::Job> job = selection::jobOf(settings, *program.engine);
    std::string error = job.error;
    EXPECT_TRUE(job && selection::writeJob(folder.file(name), *job, program.formats, error)) << name << error;
    return folder.file(name);
  }
  Selections control() {
    Selections selections = program.reading(tests::samples()[1]);
    selection::nameFile(selections, Side::Source, std::filesystem::absolute("samples/control.csv").string());
    selection::nameFile(selections, Side::Target, folder.file("out.csv"));
    selection::pickProjection(selections, Side::Target, 4);
    selection::chooseUnit(selections, Side::Target, true);
    selection::chooseTargetFormat(selections, program.formats, run::target::CommaDelimited);
    selections.run.reportEnabled = false;
    return selections;
  }

  tests::Program program;
};

/// What Execute writes with the selections, and the job of them.
struct Case {
  std::string job;
  std::string target;
  std::string bytes;
  bool stopped;
};

TEST_F(Jobs, WriteTheSameBytesAsExecute) {
  std::vector<Selections> choices;
  for (const tests::Sample& sample : tests::samples()) {
    for (std::int16_t format = 1; format < static_cast<std::int16_t>(program.formats.targets.size()); ++format) {
      if (run::target::isAgency(format)) continue;
      Selections& s = choices.emplace_back(program.reading(sample));
      selection::pickProjection(s, Side::Target, 4);
      selection::chooseUnit(s, Side::Target, true);
      selection::chooseTargetFormat(s, program.formats, format);
      // What no switch reaches.
      s.run.targetDelimited = {.name = "Mine", .delimiter = ';', .fieldCodes = " 3~ 1~ 0~ 4~", .latLongFormat = 2};
      s.run.NextPointNumber = 500;
      s.run.options.delorme.symbol = "DOT";
      s.run.options.maptech.symbol = 3;
    }
  }
  // With a project of its own, which the program's data folder does not have.
  choices.push_back(control());
  selection::pickProjection(choices.back(), Side::Target, run::kUserDefinedProject);
  choices.back().run.project = {.name = "Bridge",
                                .definition = "+proj=tmerc +lat_0=45 +lon_0=-93 +k=1 +x_0=500 +y_0=100 +ellps=GRS80"};
  choices.push_back(control());
  selection::nameFile(choices.back(), Side::Source, tests::samplePath("ALDR1.csv"));
  selection::chooseDatabaseSource(choices.back(), program.formats,
                                  [](const run::Message&) { return run::Answer::Yes; });
  selection::chooseHorizontalReference(choices.back(), "NAD83(1996) ADJ.");
  choices.push_back(control());
  selection::nameFile(choices.back(), Side::Source, tests::samplePath("geodetics_special.txt"));
  selection::chooseSourceFormat(choices.back(), program.formats, run::source::GeodeticsSpecial);

  program.formats.report.today = aDay;
  std::vector<Case> cases;
  std::string line;
  for (Selections& s : choices) {
    const std::string number = std::to_string(cases.size());
    selection::nameFile(s, Side::Target, folder.file("target" + number + ".txt"));
    run::RunSettings settings = selection::runSettings(s, program.formats);
    settings.reportEnabled = false;
    const std::string job = save(number + ".tovak", settings);
    tests::ScriptedPerson person;
    const run::RunResult result = convert(settings, *program.engine, program.formats, {.person = person});
    cases.push_back(
        {job, result.targetName, contentsOf(result.targetName), result.outcome == run::RunOutcome::Stopped});
    std::filesystem::remove(result.targetName);
    line += job + ' ';
  }
  run(line + "-Q");
  int written = 0;
  for (const Case& c : cases) {
    EXPECT_EQ(contentsOf(c.target), c.bytes) << contentsOf(c.job) << err.str();
    EXPECT_EQ(out.str().find(c.job + ": status 1,") != std::string::npos, c.stopped) << c.job;
    written += c.stopped ? 0 : 1;
  }
  EXPECT_GT(written, 120);
}

TEST_F(Jobs, GiveWayToTheRestOfTheLineAndWriteTheirReport) {
  Selections selections = control();
  selections.run.reportEnabled = true;
  const std::string job = save("night.tovak", selections.run);
  EXPECT_EQ(run(job + " -Q"), kDoubts) << err.str();
  const std::string first = contentsOf(folder.file("out.csv"));
  EXPECT_TRUE(first.starts_with("$Tovak#4M$ NAD83  (Meters)\n")) << first;
  EXPECT_NE(contentsOf(folder.file("AppData/QrAppsData/Tovak11-21-2026.rpt")), "(no file)");

  const std::string other = folder.write("other.csv", "45.5,-93.5,A\n"), mine = folder.file("mine.rpt");
  EXPECT_EQ(run(job + " " + other + " " + folder.file("b.csv") + " -Q -TP2 -TUE -R" + mine + " -Y2011"), kFinished)
      << err.str();
  EXPECT_TRUE(contentsOf(folder.file("b.csv")).starts_with("$Tovak#1-2011$ NAD83(2011)  (Feet)\n"));
  EXPECT_NE(contentsOf(mine), "(no file)");
  EXPECT_EQ(contentsOf(folder.file("out.csv")), first);
  EXPECT_EQ(run(job + " " + other + " " + folder.file("c.csv") + " -Q -A3 -TP2"), kDoubts) << "another form";
}

TEST_F(Jobs, AreRunOneAfterTheOtherWhateverBecomesOfOne) {
  const run::RunSettings good = control().run;
  run::RunSettings bad = good;
  bad.targetFormat = run::target::Vesko80Column;
  bad.TargetProjectionCode = 0;
  const std::string a = save("a.tovak", bad), c = save("c.tovak", good);
  const std::string b = folder.write("b.tovak", contentsOf(c).replace(0, 11, "Tovak job 9"));
  std::string renamed = contentsOf(c);
  renamed.replace(renamed.find("Latitude and"), 8, "Altitude");
  const std::string d = folder.write("d.tovak", renamed);
  EXPECT_EQ(run(a + " " + b + " " + d + " " + c + " -Q"), kStoppedByMessage);
  EXPECT_EQ(out.str(), a + ": status 1, 0 read, 0 converted, 0 skipped, 0 doubts, " + folder.file("out.csv") + '\n' +
                           b + ": status 2, 0 read, 0 converted, 0 skipped, 0 doubts, no target\n" + d +
                           ": status 1, 0 read, 0 converted, 0 skipped, 0 doubts, " + folder.file("out.csv") + '\n' +
                           c + ": status 4, 12 read, 12 converted, 0 skipped, 8 doubts, " + folder.file("out.csv") +
                           '\n');
  EXPECT_NE(err.str().find(b + ": Command Line Error: " + b + ": line 1: the job is of a newer version of Tovak\n"),
            std::string::npos);
  EXPECT_NE(err.str().find("is \"Latitude and Longitude, NAD83\" here, and \"Altitude and"), std::string::npos);
  EXPECT_EQ(run(c + " " + b + " -Q"), kCommandLineProblem);
  EXPECT_EQ(run(c + " " + c + " -Q"), kDoubts);
  const std::pair<std::string, const char*> refused[] = {
      {c + " " + a, "Several Jobs Need -B or -Q."},
      {folder.file("no.tovak") + " -Q", "No such file or directory"},
      {c + " in.csv " + c + " -Q", "Source File Does Not Exist."},
      {c + " samples/control.csv " + c + " -Q", "A Job Cannot Be Target or Report."},
      {b, "newer version"}};
  for (const auto& [line, problem] : refused) {
    EXPECT_EQ(run(line), kCommandLineProblem);
    EXPECT_NE(err.str().find(problem), std::string::npos) << err.str();
  }
  EXPECT_EQ(run(a + " " + c + " in.csv -Q"), kCommandLineProblem);
}

}  // namespace
}  // namespace tovak::app
