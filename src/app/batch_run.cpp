#include "app/batch_run.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "app/console_person.h"
#include "run/account_lines.h"
#include "run/doubts.h"
#include "selection/job_use.h"
#include "selection/selections.h"
#include "text/number.h"

namespace tovak::app {
namespace {

ExitStatus exitStatus(const run::RunResult& result) {
  using enum run::RunOutcome;
  if (result.outcome == Stopped || result.outcome == Cancelled) return kStoppedByMessage;
  const bool everything =
      result.outcome == run::RunOutcome::Finished && recordsSkipped(result.counts) == 0 && result.counts.converted > 0;
  if (!everything) return kNotEverythingConverted;
  return anyDoubt(result.counts.doubts) ? kDoubts : kFinished;
}

/// Makes a job's choices again that depend on what is there now. The message stops the run.
std::optional<run::Message> resumeJob(CommandLine& line, const BatchTools& tools) {
  if (!line.job) return std::nullopt;
  selection::Job job = *line.job;
  // A system that the line has replaced is not the job's.
  if (job.settings.SourceProjectionCode != line.settings.SourceProjectionCode) job.sourceSystem.clear();
  if (job.settings.TargetProjectionCode != line.settings.TargetProjectionCode) job.targetSystem.clear();
  if (std::optional<run::Message> other = otherSystem(job, tools.engine)) return other;
  selection::Selections selections = {.run = line.settings};
  std::optional<run::Message> missing = resumeDatabase(selections, tools.formats);
  line.settings = selections.run;
  return missing;
}

std::uint64_t doubtsOf(const run::RecordCounts& counts) {
  std::uint64_t sum = 0;
  for (const run::DoubtTally& tally : counts.doubts) sum += tally.count;
  return sum;
}

void appendCount(std::string& line, std::uint64_t count, std::string_view what) {
  text::appendWhole(line += ", ", static_cast<std::int64_t>(count));
  line += what;
}

std::string jobAccount(const std::string& job, const BatchRun& run, const std::string& target) {
  const run::RecordCounts& counts = run.result.counts;
  std::string line = job + ": status ";
  text::appendWhole(line, run.status);
  appendCount(line, recordsRead(counts), " read");
  appendCount(line, counts.converted, " converted");
  appendCount(line, recordsSkipped(counts), " skipped");
  appendCount(line, doubtsOf(counts), " doubts");
  return line + ", " + (target.empty() ? "no target" : target);
}

ExitStatus worse(ExitStatus a, ExitStatus b) {
  if (a == kFinished || b == kFinished) return std::max(a, b);
  return std::min(a, b);
}

}  // namespace

void nameReportOfJob(CommandLine& line, const std::string& dailyReport) {
  run::RunSettings& settings = line.settings;
  if (settings.reportEnabled && settings.reportFileName.empty()) settings.reportFileName = dailyReport;
}

BatchRun runBatch(CommandLine& line, const BatchTools& tools, const std::string& label) {
  BatchRun run;
  run::RunSettings& settings = line.settings;
  // Whoever keeps a report in a job wants it.
  if (!line.job) settings.reportEnabled = false;
  const Surroundings& io = tools.io;
  if (const std::optional<run::Message> problem = resumeJob(line, tools)) {
    printMessage(io.err, {.text = problem->text, .title = label + "Batch Mode Error"});
    run.status = kStoppedByMessage;
    return run;
  }
  const bool talkative = settings.BatchMode == 1;
  ConsolePerson person(io.err, talkative && io.errIsTerminal, io.hasDisplay && label.empty());
  run.result = run::convert(settings, tools.engine, tools.formats, {.person = person, .progress = &person});
  person.endProgress();
  const run::RunResult& result = run.result;
  const bool begun = result.outcome != run::RunOutcome::Stopped || recordsRead(result.counts) > 0;
  run.leftBatchMode = person.leftBatchMode();
  run.messagesForWindow = person.messagesForWindow();
  if (!run.leftBatchMode && !result.MessageText.empty()) {
    printMessage(io.err, {.text = result.MessageText, .title = label + "Batch Mode Error"});
  }
  run.status = exitStatus(result);
  if (begun && (talkative || run.status != kFinished)) {
    for (const std::string& account : accountLines(result)) printLine(io.err, label + account);
  }
  return run;
}

ExitStatus runJobs(const std::string& commandLine, const CommandLine& first, const std::string& dailyReport,
                   const BatchTools& tools) {
  ExitStatus worst = kFinished;
  for (std::size_t i = 0; i < first.jobs.size(); ++i) {
    const std::string& name = first.jobs[i];
    CommandLine line = parseCommandLine(commandLine, tools.formats, i);
    BatchRun run;
    if (line.MessageText.empty()) {
      nameReportOfJob(line, dailyReport);
      run = runBatch(line, tools, name + ": ");
    } else {
      printMessage(tools.io.err, {.text = line.MessageText, .title = name + ": Command Line Error"});
    }
    printLine(tools.io.out, jobAccount(name, run, line.settings.target.fileName));
    worst = worse(worst, run.status);
  }
  return worst;
}

}  // namespace tovak::app
