#include "app/command_line.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <system_error>
#include <utility>

#include "app/command_items.h"
#include "run/format_index.h"
#include "run/projection_code.h"
#include "selection/selections.h"
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
  Checker(CommandItems& parsed, const FormatTables& formats)
      : parsed_(parsed), formats_(formats), batch_(parsed.settings.BatchMode > 0) {}

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
    } else if (!fs::exists(sourceName, error)) {
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
    if (parsed_.source.format == run::source::GeodeticCsv) add("Batch Mode Data Source Cannot Be a CSV File.");
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
    } else if (batch_ && side.projection == run::kUserDefinedProject) {
      add(messages.projectionUserDefined);
      side.projection = kNotGiven;
    }
  }

  CommandItems& parsed_;
  const FormatTables& formats_;
  const bool batch_;
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
  selections.run.source.fileName = parsed.source.fileName;
  selections.run.target.fileName = parsed.target.fileName;
  selections.run.latLongFormChosen = parsed.settings.latLongFormChosen;
  return selections.run;
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

CommandLine parseCommandLine(std::string_view line, const FormatTables& formats) {
  CommandItems parsed = parseCommandItems(line);
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
