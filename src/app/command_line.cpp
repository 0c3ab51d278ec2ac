#include "app/command_line.h"

#include <cstddef>
#include <cstdint>
#include <system_error>

#include "app/command_items.h"
#include "run/format_index.h"
#include "run/projection_box.h"
#include "run/projection_code.h"
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

/// What was given goes into the settings; the rest keeps the program's defaults.
void applySide(const CommandSide& side, std::size_t formatCount, std::int16_t& format, std::int16_t& code,
               run::SideSettings& settings) {
  if (side.format >= 0 && static_cast<std::size_t>(side.format) < formatCount) format = side.format;
  if (side.projection >= 0) code = side.projection;
  settings.fileName = side.fileName;
  settings.metres = side.metres.value_or(false);
  settings.projectionText = run::projectionText(code, settings.metres);
}

}  // namespace

std::string joinArguments(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments) {
    if (!line.empty()) line += ' ';
    const bool needsQuotes = argument.find(' ') != std::string::npos && argument.find('"') == std::string::npos;
    const bool report = argument.size() > 2 && argument[0] == '-' && text::upperCase(argument[1]) == 'R';
    const std::size_t head = report ? 2 : 0;
    line += needsQuotes ? argument.substr(0, head) + '"' + argument.substr(head) + '"' : argument;
  }
  return line;
}

bool asksForHelp(std::string_view line) {
  return text::findIgnoringCase(line, "-h") != std::string_view::npos;
}

CommandLine parseCommandLine(std::string_view line, const FormatTables& formats) {
  CommandItems parsed = parseCommandItems(line);
  // A format's own projection gives way to one that is named, wherever on the line that is.
  if (parsed.target.projection == kNotGiven && forcesLatLong(parsed.target, formats)) {
    parsed.target.projection = run::kLatLongNad83;
  }
  CommandLine result;
  result.MessageText = Checker(parsed, formats).problems();
  result.settings = parsed.settings;
  result.workingFolder = parsed.workingFolder;
  result.reportFileNamed = parsed.reportFileNamed;
  applySide(parsed.source, formats.sources.size(), result.settings.sourceFormat, result.settings.SourceProjectionCode,
            result.settings.source);
  applySide(parsed.target, formats.targets.size(), result.settings.targetFormat, result.settings.TargetProjectionCode,
            result.settings.target);
  return result;
}

}  // namespace tovak::app
