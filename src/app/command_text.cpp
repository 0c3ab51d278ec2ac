#include "app/command_text.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/command_items.h"
#include "app/command_line.h"
#include "run/labels.h"
#include "selection/job_file.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::app {
namespace {

using Command = text::Result<std::string>;

std::string numbered(std::string_view option, std::int64_t number) {
  std::string item(option);
  text::appendWhole(item, number);
  return item;
}

void addSide(std::vector<std::string>& items, const std::string& letter, std::int16_t format, std::int16_t projection,
             bool metres) {
  items.push_back(numbered("-" + letter + "F", format + 1));
  items.push_back(numbered("-" + letter + "P", projection + 1));
  items.push_back("-" + letter + (metres ? "UM" : "UE"));
}

std::vector<std::string> argumentsOf(const run::RunSettings& settings) {
  std::vector<std::string> items = {settings.source.fileName, settings.target.fileName, "-B"};
  addSide(items, "S", settings.sourceFormat, settings.SourceProjectionCode, settings.source.metres);
  if (settings.latLongForm == text::AngleForm::DecimalDegrees) items.emplace_back("-A4");
  if (settings.latLongForm == text::AngleForm::DegreesDecimalMinutes) items.emplace_back("-A5");
  addSide(items, "T", settings.targetFormat, settings.TargetProjectionCode, settings.target.metres);
  if (settings.accuracy != text::Accuracy::Thousandth)
    items.push_back(numbered("-F", static_cast<std::int64_t>(settings.accuracy) + 1));
  constexpr const char* kYears[] = {"", "1986", "1996", "2007", "2011"};
  if (settings.adjustment != run::Adjustment::None)
    items.push_back(std::string("-Y") + kYears[static_cast<std::size_t>(settings.adjustment)]);
  return items;
}

std::string quotedForShell(const std::string& argument) {
  constexpr std::string_view kPlain = "-./_,+:@%=ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  if (argument.find_first_not_of(kPlain) == std::string::npos && !argument.empty()) return argument;
  std::string quoted = "'";
  for (const char c : argument) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + '\'';
}

std::string joinedForShell(const std::vector<std::string>& arguments) {
  std::string text = "tovak";
  for (const std::string& argument : arguments) text += ' ' + quotedForShell(argument);
  return text;
}

/// The settings as a job, without what does not touch the target.
Command comparable(run::RunSettings settings, const run::FormatTables& formats) {
  settings.reportEnabled = settings.printReport = false;
  settings.appendReport = true;
  settings.reportFileName.clear();
  settings.reportDescription.clear();
  settings.verticalDatum = {};
  settings.latLongFormChosen = false;
  settings.project.reset();
  const bool blank = settings.allowBlankPointNumbers;
  if (blank) settings.NextPointNumber = settings.PointNumberIncrement = 1;
  // Of a layout only what reads or writes points counts.
  if (!formats.sources[static_cast<std::size_t>(settings.sourceFormat)].choosesLayout) settings.sourceDelimited = {};
  if (!formats.targets[static_cast<std::size_t>(settings.targetFormat)].choosesLayout) settings.targetDelimited = {};
  const run::DelimitedFormat& read = settings.sourceDelimited;
  settings.sourceDelimited = {.delimiter = read.delimiter, .fieldCodes = read.fieldCodes};
  settings.targetDelimited.name.clear();
  if (!settings.targetDelimited.includeHeader) settings.targetDelimited.headerLine.clear();
  const run::TargetOptions options = formats.targets[static_cast<std::size_t>(settings.targetFormat)].options;
  const run::FormatOptions given = std::exchange(settings.options, {});
  if (options == run::TargetOptions::DeLorme) settings.options.delorme = given.delorme;
  if (options == run::TargetOptions::Maptech) settings.options.maptech = given.maptech;
  if (options == run::TargetOptions::TrimbleWaypoints) settings.options.waypoints = given.waypoints;
  return selection::jobText({.settings = settings}, "command", formats);
}

/// The first line of a text that another one does not have in its place.
std::string firstDifference(std::string_view wanted, std::string_view got) {
  while (!wanted.empty()) {
    const std::string_view line = text::takeField(wanted, '\n');
    if (line != text::takeField(got, '\n')) return std::string(line);
  }
  return {};
}

}  // namespace

Command commandText(const run::RunSettings& settings, const run::FormatTables& formats) {
  const std::vector<std::string> arguments = argumentsOf(settings);
  const std::string line = joinArguments(arguments);
  const std::string name = faultyArgument(arguments);
  if (!name.empty()) return Command::failure("A name with a blank and a quotation mark cannot be given: " + name);
  if (const std::optional<std::string> item = itemAskingForHelp(line))
    return Command::failure("\"-h\" in a name asks for help: " + *item);
  // What the line says is best told by what reads it.
  const CommandLine read = parseCommandLine(line, formats);
  if (!read.MessageText.empty()) return Command::failure(read.MessageText);
  const Command wanted = comparable(settings, formats);
  const Command got = comparable(read.settings, formats);
  if (!wanted || !got) return wanted ? got : wanted;
  if (const std::string other = firstDifference(*wanted, *got); !other.empty())
    return Command::failure("No switch says: " + other);
  return joinedForShell(arguments);
}

std::string jobCommandText(const std::string& jobFile) {
  return joinedForShell({jobFile, "-B"});
}

}  // namespace tovak::app
