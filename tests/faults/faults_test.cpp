// Whole runs, from a file to a target and a report, on a system that fails.
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "app/console_person.h"
#include "formats/format_tables.h"
#include "report/report_writer.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "support/faulty_system.h"
#include "support/scripted_engine.h"
#include "support/temporary_folder.h"

namespace tovak::run {
namespace {

namespace fs = std::filesystem;
using tests::Call;
using tests::contentsOf;
using tests::FaultPlan;
using tests::FaultySystem;
using tests::TemporaryFolder;

using Names = std::vector<std::string>;

struct Outputs {
  std::string target;
  std::string report;
  bool operator==(const Outputs&) const = default;
};

std::string points(char mark, int count) {
  std::string lines;
  for (int i = 0; i < count; ++i) lines += "5010000.125,480000.250," + std::string(20, mark) + ",7,812.125\n";
  return lines;
}

class Faults : public testing::Test {
 protected:
  RunResult convert(const std::string& source, bool append) const {
    RunSettings settings;
    settings.sourceFormat = source::CommaDelimited;
    settings.targetFormat = target::CommaDelimited;
    settings.SourceProjectionCode = settings.TargetProjectionCode = 4;
    settings.source.fileName = source;
    settings.target.fileName = out;
    settings.source.projectionText = settings.target.projectionText = "4";
    settings.reportEnabled = true;
    settings.appendReport = append;
    settings.reportFileName = report;
    settings.BatchMode = 2;
    FormatTables formats = formats::formatTables();
    formats.report = {.makeWriter = report::makeReportWriter,
                      .version = "1.0.0",
                      .today =
                          [] {
                            return text::Date{2026, 11, 21};
                          },
                      .joint = report::reportJoint};
    tests::ScriptedEngine engine;
    engine.keepsCalls = false;
    app::ConsolePerson person(std::cerr, false, false);
    return run::convert(settings, engine, formats, {.person = person});
  }
  Outputs outputs() const { return {contentsOf(out), contentsOf(report)}; }
  void putOld() const {
    if (outputs() == old) return;
    folder.write("out", old.target);
    folder.write("report", old.report);
  }
  /// What a run leaves that nothing befalls.
  Outputs complete(const std::string& source, bool append) const {
    putOld();
    EXPECT_EQ(convert(source, append).outcome, RunOutcome::Finished);
    return outputs();
  }

  /// What became of the runs in which a call failed.
  struct Fates {
    int stopped = 0;
    int wentOn = 0;
  };
  /// Lets one call of a kind after the other fail, until a run makes no further one, with files that have no name until
  /// they are complete and with files that have.
  Fates failEach(Call call, int error, bool append, const Outputs& fresh) const {
    Fates fates;
    for (const bool named : {false, true}) {
      for (int place = 1;; ++place) {
        putOld();
        const FaultySystem system({.call = call, .place = place, .error = error, .noUnnamedFiles = named});
        const RunResult result = convert(in, append);
        EXPECT_EQ(folder.names(), names) << place;
        if (!tests::faultPlan.reached) break;
        const bool finished = result.outcome == RunOutcome::Finished;
        ++(finished ? fates.wentOn : fates.stopped);
        // The report comes last: then the target is there, and the message names the report.
        const bool reportAlone = result.MessageText.starts_with(report) && contentsOf(out) == fresh.target;
        const Outputs kept = {reportAlone ? fresh.target : old.target, old.report};
        EXPECT_EQ(outputs(), finished ? fresh : kept) << place;
        EXPECT_TRUE(finished || result.MessageText.find(std::strerror(error)) != std::string::npos)
            << place << result.MessageText;
      }
    }
    return fates;
  }

  const TemporaryFolder folder;
  const std::string out = folder.file("out"), report = folder.file("report");
  const std::string in = folder.write("in", points('a', 1400));
  Outputs old = {"old target\n", "old report\n"};
  const Names names = {"in", "out", "report"};
};

TEST_F(Faults, OfEachSystemCallLeaveTheOldFilesOrTheNewOnes) {
  const std::tuple<const char*, int> errors[] = {
      {"EIO", EIO}, {"ENOSPC", ENOSPC}, {"EINTR", EINTR}, {"EDQUOT", EDQUOT}};
  for (const bool append : {false, true}) {
    const Outputs fresh = complete(in, append);
    for (const auto& [errorName, error] : errors) {
      for (std::size_t i = 0; i < tests::kCallNames.size(); ++i) {
        SCOPED_TRACE(testing::Message() << tests::kCallNames[i] << ' ' << errorName);
        const auto call = static_cast<Call>(i);
        const Fates fates = failEach(call, error, append, fresh);
        // The program does without an unnamed file, the look at the source's first line, and the close of what it read.
        const bool mayGoOn = error == EINTR || call == Call::Open || call == Call::Read || call == Call::Close;
        EXPECT_TRUE(mayGoOn || fates.wentOn == 0);
        EXPECT_TRUE(error == EINTR || fates.stopped > 0 || fates.wentOn == 0);
        std::printf("%-10s %-7s %-15s %3d stopped, %3d went on\n", tests::kCallNames[i], errorName,
                    append ? "report appended" : "report replaced", fates.stopped, fates.wentOn);
      }
    }
  }
}

TEST_F(Faults, OfShortTransfersMakeNoDifference) {
  for (const bool append : {false, true}) {
    const Outputs fresh = complete(in, append);
    putOld();
    const FaultySystem system({.shortTransfers = true});
    EXPECT_EQ(convert(in, append).outcome, RunOutcome::Finished);
    EXPECT_EQ(outputs(), fresh);
  }
}

TEST_F(Faults, OfAKilledRunLeaveTheOldFilesOrTheNewOnes) {
  for (const bool append : {false, true}) {
    const Outputs fresh = complete(in, append);
    for (int place = 1;; ++place) {
      SCOPED_TRACE(place);
      putOld();
      const pid_t child = fork();
      if (child == 0) {
        const FaultySystem system({.killedBefore = place});
        convert(in, append);
        _exit(0);
      }
      int status = 0;
      waitpid(child, &status, 0);
      const Outputs now = outputs();
      EXPECT_TRUE(now.target == old.target || now.target == fresh.target);
      // What is put behind an older report is written in blocks: the older one is never touched.
      const bool whole = now.report == old.report || now.report == fresh.report;
      const bool begun = append && now.report.starts_with(old.report) && fresh.report.starts_with(now.report);
      EXPECT_TRUE(whole || begun);
      EXPECT_TRUE(now.report == old.report || now.target == fresh.target) << "a report without its target";
      for (const std::string& name : folder.names()) {
        if (name.starts_with(".tovak_")) fs::remove(folder.file(name));
      }
      EXPECT_EQ(folder.names(), names);
      if (!WIFSIGNALED(status)) {
        EXPECT_GT(place, 20);
        break;
      }
    }
  }
}

TEST_F(Faults, OfTwoRunsAtOnceDoNotMixTheirFiles) {
  constexpr int kRuns = 5;
  const std::string sources[] = {in, folder.write("in2", points('b', 900))};
  // What stands between two reports is not what stands between a report and some other text.
  old.report = complete(in, true).report;
  const Outputs fresh[] = {complete(sources[0], true), complete(sources[1], true)};
  putOld();
  for (const std::string& source : sources) {
    if (fork() != 0) continue;
    bool good = true;
    for (int i = 0; i < kRuns; ++i) good = good && convert(source, true).outcome == RunOutcome::Finished;
    _exit(good ? 0 : 1);
  }
  for (int status = 1; wait(&status) > 0;) EXPECT_EQ(status, 0);
  EXPECT_TRUE(contentsOf(out) == fresh[0].target || contentsOf(out) == fresh[1].target);
  std::string all = contentsOf(report).substr(old.report.size());
  for (const Outputs& outputs : fresh) {
    const std::string own = outputs.report.substr(old.report.size());
    int found = 0;
    for (std::size_t at = 0; (at = all.find(own)) != std::string::npos; ++found) all.erase(at, own.size());
    EXPECT_EQ(found, kRuns);
  }
  EXPECT_EQ(all, "");
}

TEST_F(Faults, OfASourceThatChangesMakeADoubt) {
  const std::string blocks = points('c', 5000);
  const std::tuple<const char*, std::function<void()>, std::uint64_t> cases[] = {
      {"nothing", [] {}, 0},
      {"written to", [&] { std::ofstream(in, std::ios::app) << "1,2,more\n"; }, 1},
      {"cut", [&] { fs::resize_file(in, 70000); }, 1},
      {"removed", [&] { fs::remove(in); }, 1},
      {"replaced", [&] { fs::rename(folder.write("other", blocks), in); }, 1}};
  for (const auto& [name, act, doubts] : cases) {
    folder.write("in", blocks);
    // The clock may have been anywhere when it was written.
    const timespec times[] = {{.tv_sec = 9999999999, .tv_nsec = 0}, {.tv_sec = 9999999999, .tv_nsec = 0}};
    utimensat(AT_FDCWD, in.c_str(), times, 0);
    const FaultySystem system({.atFirstRead = act});
    const RunResult result = convert(in, false);
    EXPECT_EQ(result.outcome, RunOutcome::Finished) << name;
    EXPECT_EQ(tallyOf(result.counts.doubts, Doubt::SourceChanged).count, doubts) << name;
    EXPECT_EQ(doubtLines(result.counts.doubts),
              doubts == 0 ? Names{} : Names{"1 source was changed, replaced or removed while it was read"});
  }
}

TEST_F(Faults, OfTheTargetsFolderAreTold) {
  const TemporaryFolder gone;
  const FaultySystem system({.atFirstRead = [&] { fs::remove_all(folder.path()); }});
  const RunResult result = convert(gone.write("in", points('a', 3)), false);
  EXPECT_EQ(result.outcome, RunOutcome::Stopped);
  EXPECT_EQ(result.MessageText, out + ": No such file or directory");
}

TEST_F(Faults, OfOddFilesEndInAMessageOrAtTheirEnd) {
  folder.write("out", "old target\n");
  const std::string sparse = folder.write("sparse", "1,2,a\n");
  fs::resize_file(sparse, std::uintmax_t{4} << 30);
  const std::string pipe = folder.file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const pid_t child = fork();
  if (child == 0) {
    std::ofstream(pipe) << points('a', 3);
    _exit(0);
  }
  const std::tuple<std::string, std::string, std::uint64_t> cases[] = {
      {sparse, sparse + ": line 2 is longer than 1 MiB", 1},
      {pipe, "", 3},
      {"/dev/null", "", 0},
      {"/dev/zero", "/dev/zero: line 1 is longer than 1 MiB", 0},
      {folder.path().string(), folder.path().string() + ": Is a directory", 0}};
  for (const auto& [source, message, converted] : cases) {
    const RunResult result = convert(source, false);
    EXPECT_EQ(result.MessageText, message) << source;
    EXPECT_EQ(result.counts.converted, converted) << source;
  }
  waitpid(child, nullptr, 0);
}

}  // namespace
}  // namespace tovak::run
