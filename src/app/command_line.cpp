#include "app/command_line.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <system_error>
#include <utility>

#include "app/command_items.h"
#include "formats/database/map_sheets.h"
#include "run/format_index.h"
#include "run/projection_code.h"
#include "selection/job_file.h"
#include "selection/selections.h"
#include "text/file_identity.h"
#include "text/native_path.h"
#include "text/strings.h"

namespace tovak::app {
namespace {

namespace fs = std::filesystem;
using run::FormatTables;

/// The messages that differ between the sides.
struct SideMessages {
  const char* unitsMissing;
  const char* formatMissing;
  const char* formatImproper;
  const char* projectionMissing;
  const char* projectionImproper;
  const char* projectionUserDefined;
};

constexpr SideMessages kSourceMessages = {
    "Source File Units Were Not Specified.",      "Source File Format Was Not Specified.",
    "Improper Source File Format Was Specified.", "Source File Projection Was Not Specified.",
    "Improper Source Projection Was Specified.",  "Batch Mode Source Projection Cannot Be User Defined."};

constexpr SideMessages kTargetMessages = {
    "Target File Units Were Not Specified.",      "Target File Format Was Not Specified.",
    "Improper Target File Format Was Specified.", "Target File Projection Was Not Specified.",
    "Improper Target Projection Was Specified.",  "Batch Mode Target Projection Cannot Be User Defined."};

class Checker {
 public:
  /// `ofJob`: the parts that the line leaves to a job are filled in.
  Checker(CommandItems& parsed, const FormatTables& formats, bool ofJob = false)
      : parsed_(parsed), formats_(formats), batch_(parsed.settings.BatchMode > 0), ofJob_(ofJob) {}

  std::string problems() {
    if (!parsed_.numberProblem.empty()) return parsed_.numberProblem;
    if (parsed_.agencyRun && batch_) {
      return "Vesko Specific Batch Files for Database Applications\n"
             "cannot be run automatically from the command line.";
    }
    checkFiles();
    checkUnits(parsed_.source, kSourceMessages);
    checkUnits(parsed_.target, kTargetMessages);
    if (checkFormat(parsed_.source, formats_.sources.size(), kSourceMessages)) checkBatchSource();
    if (checkFormat(parsed_.target, formats_.targets.size(), kTargetMessages)) checkBatchTarget();
    checkProjection(parsed_.source, kSourceMessages);
    checkProjection(parsed_.target, kTargetMessages);
    problems_ += parsed_.rangeProblems;
    if (!problems_.empty()) problems_.pop_back();
    return problems_;
  }

 private:
  void add(std::string_view problem) {
    problems_ += problem;
    problems_ += '\n';
  }

  void checkFiles() {
    std::string& sourceName = parsed_.source.fileName;
    std::error_code error;
    if (sourceName.empty()) {
      add("Source File Was Not Specified.");
    } else if (!fs::exists(text::pathOf(sourceName), error)) {
      add("Source File Does Not Exist.");
      sourceName.clear();
    }
    if (parsed_.target.fileName.empty()) add("Target File Was Not Specified.");
  }

  void checkUnits(const CommandSide& side, const SideMessages& messages) {
    if (!side.metres) add(messages.unitsMissing);
  }

  bool checkFormat(const CommandSide& side, std::size_t count, const SideMessages& messages) {
    const bool given = side.format >= 0;
    if (given && static_cast<std::size_t>(side.format) < count) return true;
    add(given ? messages.formatImproper : messages.formatMissing);
    return false;
  }

  void checkBatchSource() {
    if (!batch_) return;
    if (parsed_.source.format == run::source::Keyboard) add("Batch Mode Data Source Cannot Be Keyboard.");
    if (!ofJob_ && parsed_.source.format == run::source::GeodeticCsv)
      add("Batch Mode Data Source Cannot Be a CSV File.");
  }

  void checkBatchTarget() {
    if (batch_ && parsed_.target.format == run::target::ScreenOnly) add("Batch Mode Data Target Cannot Be Screen.");
  }

  void checkProjection(CommandSide& side, const SideMessages& messages) {
    if (side.projection < 0) {
      add(messages.projectionMissing);
    } else if (side.projection > run::kLastProjectionCode) {
      add(messages.projectionImproper);
      side.projection = kNotGiven;
    } else if (batch_ && side.projection == run::kUserDefinedProject && !parsed_.settings.project) {
      add(messages.projectionUserDefined);
      side.projection = kNotGiven;
    }
  }

  CommandItems& parsed_;
  const FormatTables& formats_;
  const bool batch_;
  const bool ofJob_;
  std::string problems_;
};

bool forcesLatLong(const CommandSide& target, const FormatTables& formats) {
  return target.format >= 0 && static_cast<std::size_t>(target.format) < formats.targets.size() &&
         formats.targets[static_cast<std::size_t>(target.format)].forcesLatLong;
}

/// Chooses a side's format if a valid one is given. The geodetic database is chosen with its files, by the window.
void chooseFormats(selection::Selections& selections, const CommandItems& parsed, const FormatTables& formats) {
  const auto among = [](std::int16_t format, std::size_t count) {
    return format >= 0 && static_cast<std::size_t>(format) < count;
  };
  const std::int16_t source = parsed.source.format;
  if (source == run::source::GeodeticCsv) {
    selections.run.sourceFormat = source;
  } else if (among(source, formats.sources.size())) {
    selection::chooseSourceFormat(selections, formats, source);
  }
  if (among(parsed.target.format, formats.targets.size())) {
    selection::chooseTargetFormat(selections, formats, parsed.target.format);
  }
}

/// Applies the given choices one after the other, as in the window; the rest keeps the program's defaults.
run::RunSettings chosenSettings(const CommandItems& parsed, const FormatTables& formats) {
  using selection::Side;
  selection::Selections selections = {.run = parsed.settings};
  const std::pair<Side, const CommandSide*> sides[] = {{Side::Source, &parsed.source}, {Side::Target, &parsed.target}};
  chooseFormats(selections, parsed, formats);
  for (const auto& [side, given] : sides) {
    // A projection or unit that is named overrides those that a format brings.
    if (given->projection >= 0) pickProjection(selections, side, given->projection);
    chooseUnit(selections, side, given->metres.value_or(projectionBox(selections, side).metres));
  }
  takeForcedUnit(selections, formats);
  selections.run.source.fileName = parsed.source.fileName;
  selections.run.target.fileName = parsed.target.fileName;
  selections.run.latLongFormChosen = parsed.settings.latLongFormChosen;
  return selections.run;
}

void fillFromJob(CommandSide& side, const run::SideSettings& ofJob, std::int16_t format, std::int16_t projection) {
  if (side.fileName.empty()) side.fileName = ofJob.fileName;
  if (side.format == kNotGiven) side.format = format;
  if (side.projection == kNotGiven) side.projection = projection;
  if (!side.metres) side.metres = ofJob.metres;
}

/// Another source for a job from the geodetic database: one sheet, or all of its county, as in the job.
std::string replaceSheets(run::RunSettings& settings) {
  std::vector<std::string>& sheets = settings.options.geodeticCsv.sheets;
  settings.options.geodeticCsv.countyName.clear();
  if (sheets.size() <= 1) {
    sheets.clear();
    return {};
  }
  text::Result<formats::database::MapSheetList> found = formats::database::findMapSheets(settings.source.fileName);
  if (found) sheets = std::move(*found);
  return found.error;
}

/// Puts the job's settings, changed by the rest of the line, into the result; or the problems.
void takeJob(CommandLine& result, std::string_view line, const FormatTables& formats) {
  const selection::Job& job = *result.job;
  CommandItems parsed = parseCommandItems(line, job.settings);
  const bool otherSource = !parsed.source.fileName.empty();
  if (parsed.target.projection == kNotGiven && forcesLatLong(parsed.target, formats)) {
    parsed.target.projection = run::kLatLongNad83;
  }
  CommandItems checked = parsed;
  fillFromJob(checked.source, job.settings.source, job.settings.sourceFormat, job.settings.SourceProjectionCode);
  fillFromJob(checked.target, job.settings.target, job.settings.targetFormat, job.settings.TargetProjectionCode);
  result.MessageText = Checker(checked, formats, parsed.source.format == kNotGiven).problems();
  parsed.source.fileName = checked.source.fileName;
  parsed.target.fileName = checked.target.fileName;
  result.settings = chosenSettings(parsed, formats);
  result.workingFolder = parsed.workingFolder;
  if (parsed.reportOfDay) {
    result.settings.reportEnabled = true;
    result.settings.reportFileName.clear();
  }
  result.reportFileNamed = !result.settings.reportFileName.empty();
  if (otherSource && result.MessageText.empty() &&
      formats.sources[static_cast<std::size_t>(result.settings.sourceFormat)].fromDatabase)
    result.MessageText = replaceSheets(result.settings);
}

/// Whether a run would write over one of the jobs.
bool writesOverJob(const CommandLine& line) {
  const run::RunSettings& settings = line.settings;
  return std::ranges::any_of(line.jobs, [&](const std::string& job) {
    return text::sameFile(job, settings.target.fileName) ||
           (settings.reportEnabled && text::sameFile(job, settings.reportFileName));
  });
}

CommandLine jobCommandLine(std::string_view line, const CommandItems& parsed, const FormatTables& formats,
                           std::size_t position) {
  CommandLine result;
  result.settings.BatchMode = parsed.settings.BatchMode;
  result.workingFolder = parsed.workingFolder;
  result.jobs = parsed.jobs;
  if (parsed.jobs.size() > 1 && parsed.settings.BatchMode == 0) {
    result.MessageText = "Several Jobs Need -B or -Q.";
  } else if (parsed.jobs.size() > 1 && !parsed.source.fileName.empty()) {
    result.MessageText = "Several Jobs Take No Other File Names.";
  }
  if (!result.MessageText.empty()) return result;
  text::Result<selection::Job> job = selection::readJob(parsed.jobs[position], formats);
  result.MessageText = job.error;
  if (job) {
    result.job = std::move(*job);
    takeJob(result, line, formats);
    if (result.MessageText.empty() && writesOverJob(result)) result.MessageText = "A Job Cannot Be Target or Report.";
  }
  return result;
}

/// Where the value of an argument begins: after the letters of "-R".
std::size_t valueStart(std::string_view argument) {
  const bool report = argument.size() > 2 && argument[0] == '-' && text::upperCase(argument[1]) == 'R';
  return report ? 2 : 0;
}

bool isFaulty(std::string_view argument) {
  if (argument.find('"') == std::string_view::npos) return false;
  const std::string_view value = argument.substr(valueStart(argument));
  return argument.find(' ') != std::string_view::npos ||
         (value.starts_with('"') && value.find('"', 1) != value.size() - 1);
}

}  // namespace

std::string joinArguments(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments) {
    if (!line.empty()) line += ' ';
    const bool needsQuotes = argument.find(' ') != std::string::npos;
    const std::size_t head = valueStart(argument);
    line += needsQuotes ? argument.substr(0, head) + '"' + argument.substr(head) + '"' : argument;
  }
  return line;
}

std::string faultyArgument(const std::vector<std::string>& arguments) {
  const auto faulty = std::ranges::find_if(arguments, isFaulty);
  return faulty == arguments.end() ? std::string() : *faulty;
}

CommandLine parseCommandLine(std::string_view line, const FormatTables& formats, std::size_t job) {
  CommandItems parsed = parseCommandItems(line);
  if (!parsed.jobs.empty()) return jobCommandLine(line, parsed, formats, job);
  // A projection named anywhere on the line overrides the format's own.
  if (parsed.target.projection == kNotGiven && forcesLatLong(parsed.target, formats)) {
    parsed.target.projection = run::kLatLongNad83;
  }
  CommandLine result;
  result.MessageText = Checker(parsed, formats).problems();
  result.settings = chosenSettings(parsed, formats);
  result.workingFolder = parsed.workingFolder;
  result.reportFileNamed = parsed.reportFileNamed;
  return result;
}

}  // namespace tovak::app
