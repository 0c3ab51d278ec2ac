#include "selection/job_file.h"

#include <set>

#include <gtest/gtest.h>

#include "selection/job_keys.h"
#include "selection/job_use.h"
#include "selection/sample_files.h"
#include "support/temporary_folder.h"
#include "text/strings.h"

namespace tovak::selection {
namespace {

using tests::contentsOf;

class JobFile : public testing::Test {
 protected:
  /// Why a job of these lines is refused; empty when it is read.
  std::string refusal(const std::vector<std::string>& given) {
    std::string text;
    for (const std::string& line : given) text += line + '\n';
    const text::Result<Job> job = readJob(folder.write("job.tovak", text), formats);
    return job.error.empty() ? "" : job.error.substr(folder.file("job.tovak").size() + 2);
  }

  const run::FormatTables formats = formats::formatTables();
  const tests::TemporaryFolder folder;
  const std::string whole = contentsOf(TOVAK_GOLDEN_FOLDER "/every_key.tovak");
  const std::vector<std::string> lines = [this] {
    std::vector<std::string> split;
    for (std::string_view rest = whole; !rest.empty();) split.emplace_back(text::takeField(rest, '\n'));
    return split;
  }();
};

TEST_F(JobFile, ComesBackWithEverySetting) {
  const std::string name = folder.write("job.tovak", whole), moved = folder.file("moved.tovak");
  const text::Result<Job> job = readJob(name, formats);
  ASSERT_TRUE(job) << job.error;
  EXPECT_EQ(jobKeys().size() + 2, lines.size()) << "the file has every key";
  std::string error;
  ASSERT_TRUE(writeJob(moved, *job, formats, error)) << error;
  EXPECT_EQ(contentsOf(moved), whole);
  const run::RunSettings& s = job->settings;
  EXPECT_EQ(s.source.fileName, folder.file("points of ü.lst"));
  EXPECT_EQ(s.source.projectionText + ' ' + s.target.projectionText, "263M 107");
  EXPECT_EQ(s.sourceDelimited, (run::DelimitedFormat{.name = "  with blanks",
                                                     .delimiter = '\t',
                                                     .fieldCodes = " 3~ 98~ 2~",
                                                     .headerLine = "\"quoted\" \\ \xFC"
                                                                   "ber",
                                                     .latLongFormat = 2}));
}

TEST_F(JobFile, IsRefusedWithEachLineMissingDoubledOrWrong) {
  ASSERT_EQ(refusal(lines), "");
  for (std::size_t i = 2; i < lines.size(); ++i) {
    const std::string key = lines[i].substr(0, lines[i].find(" ="));
    const auto at = [](std::size_t line) { return "line " + std::to_string(line) + ": "; };
    std::vector<std::string> damaged = lines;
    damaged.insert(damaged.begin() + static_cast<std::ptrdiff_t>(i), lines[i]);
    EXPECT_EQ(refusal(damaged), at(i + 2) + '"' + key + "\" is given twice");

    damaged = lines;
    damaged[i] = key + " = \"";
    EXPECT_TRUE(refusal(damaged).starts_with(at(i + 1) + key + ": ")) << refusal(damaged);
    damaged[i] = key.substr(1) + " = 1";
    EXPECT_EQ(refusal(damaged), at(i + 1) + '"' + key.substr(1) + "\" is no key of a job");

    damaged = lines;
    damaged.erase(damaged.begin() + static_cast<std::ptrdiff_t>(i));
    const bool harmless =
        jobKeys()[i - 2].needed == Needed::Never || jobKeys()[i - 2].needed == Needed::ForSourceLayout;
    const bool sheet = key.starts_with("database sheet") && !key.ends_with('7');
    EXPECT_EQ(refusal(damaged), sheet      ? "a map sheet of the database is left out"
                                : harmless ? ""
                                           : "the line \"" + key + " = ...\" is missing");
  }
  const std::pair<const char*, const char*> heads[] = {
      {"Tovak job 2", "line 1: the job is of a newer version of Tovak"},
      {"Tovak job", "line 1: this is not a job: its first line is not \"Tovak job 1\""},
      {"# a remark\nTovak job 1", "line 1: this is not a job: its first line is not \"Tovak job 1\""},
      {"Tovak job 1\nreport\xFC = on", "line 2: the line is not UTF-8"},
      {"Tovak job 1\nreport =\ton", "line 2: the line holds a tab or another control character"},
      {"Tovak job 1\nreport", "line 2: a key, \"=\" and a value are expected"},
      {"Tovak job 1\nreport file = \"a\\x00\"",
       "line 2: report file: after \"\\\" comes a quotation mark, \"\\\", or \"x\" and two hexadecimal digits but 00"}};
  for (const auto& [head, reason] : heads) EXPECT_EQ(refusal({head}), reason);
  EXPECT_EQ(refusal({}), "this is not a job: its first line is not \"Tovak job 1\"");
}

TEST_F(JobFile, IsNotWrittenWhereItCouldNotBeRead) {
  const std::string name = folder.write("job.tovak", "older");
  using Change = void (*)(run::RunSettings&);
  const Change changes[] = {[](run::RunSettings& s) { s.SourceProjectionCode = -1; },
                            [](run::RunSettings& s) { s.TargetProjectionCode = 263; },
                            [](run::RunSettings& s) { s.targetDelimited.latLongFormat = 9; },
                            [](run::RunSettings& s) { s.sourceDelimited.fieldCodes = " x~"; },
                            [](run::RunSettings& s) { s.reportDescription.push_back('\0'); }};
  for (const Change change : changes) {
    Job job;
    change(job.settings);
    std::string error;
    EXPECT_FALSE(writeJob(name, job, formats, error));
    EXPECT_TRUE(error.starts_with("These selections ")) << error;
  }
  EXPECT_EQ(contentsOf(name), "older");
}

TEST_F(JobFile, NamesEachFormatByAKeyOfItsOwn) {
  const auto check = [](const auto& list) {
    std::set<std::string_view> keys;
    for (const auto& format : list) EXPECT_TRUE(!format.key.empty() && keys.insert(format.key).second) << format.name;
  };
  check(formats.sources);
  check(formats.targets);
}

TEST_F(JobFile, ResumesTheDatabaseOrSaysWhatIsMissing) {
  Selections selections;
  run::GeodeticCsvChoice& choice = selections.run.options.geodeticCsv;
  beginDatabase(selections, formats);
  choice.sheets = {tests::samplePath("ALDR1.csv"), tests::samplePath("ALDR2.csv")};
  choice.horizontal = 5;
  selections.run.adjustment = run::Adjustment::Nad83_2011;
  EXPECT_FALSE(resumeDatabase(selections, formats));
  EXPECT_TRUE(choice.horizontal == 5 && choice.vertical == 13);
  EXPECT_EQ(selections.run.adjustment, run::Adjustment::Nad83_2011) << "changed after the data set was chosen";
  choice.countyName = "Elsewhere";
  EXPECT_EQ(resumeDatabase(selections, formats)->text,
            "The map sheets do not have what the job takes from them: points of Elsewhere County.");
}

}  // namespace
}  // namespace tovak::selection
