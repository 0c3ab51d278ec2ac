#include "app/program.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <utility>
#include <vector>

#include "app/account_line.h"
#include "app/command_line.h"
#include "app/console_person.h"
#include "app/usage.h"
#include "formats/format_tables.h"
#include "report/report_writer.h"
#include "run/conversion_run.h"
#include "run/data_folder.h"
#include "text/strings.h"
#include "text/system_error.h"

namespace tovak::app {
namespace {

constexpr std::string_view kHelpSwitch = "-h";

ExitStatus showHelp(std::string_view commandLine, const run::FormatTables& formats, const Surroundings& io) {
  const EngineStart start = startEngine();
  const std::string& reason = start.reason.empty() ? start.message.text : start.reason;
  const std::string page = usagePage(formats, start.engine.get(), reason);
  if (text::equalsIgnoringCase(text::trimBlanks(commandLine), kHelpSwitch)) {
    errno = 0;
    io.out << page << std::flush;
    // A pager that was left early has shown enough.
    if (io.out.good() || errno == EPIPE) return kFinished;
    io.err << text::systemErrorText("standard output", errno) << std::endl;
    return kStoppedByMessage;
  }
  io.err << page << "\nNothing was converted: the command line holds \"-h\"." << std::endl;
  return kCommandLineProblem;
}

ExitStatus refuse(const Surroundings& io, const std::string& text) {
  printMessage(io.err, {.text = text, .title = "Command Line Error"});
  return kCommandLineProblem;
}

ExitStatus exitStatus(const run::RunResult& result) {
  if (result.outcome == run::RunOutcome::Stopped) return kStoppedByMessage;
  const bool everything =
      result.outcome == run::RunOutcome::Finished && recordsSkipped(result.counts) == 0 && result.counts.converted > 0;
  return everything ? kFinished : kNotEverythingConverted;
}

/// A start that is settled as far as both ways of working need it.
struct Preparation {
  CommandLine line;
  EngineStart engine;
  formats::DelimitedFormatTable delimitedFormats;
  std::string definitionsFile;
};

/// Opens the window with what is known so far; a batch run's problems come first among its messages.
ExitStatus runWindow(const Preparation& prepared, std::vector<run::Message> messages, const run::FormatTables& formats,
                     const Surroundings& io) {
  WindowStart start;
  start.settings = prepared.line.settings;
  start.settings.BatchMode = 0;
  start.workingFolder = prepared.line.workingFolder;
  start.messages = std::move(messages);
  start.engine = prepared.engine.engine.get();
  start.formatTables = formats;
  start.delimitedFormats = prepared.delimitedFormats;
  start.definitionsFile = prepared.definitionsFile;
  start.mapSheetCodes = loadMapSheetCodes(run::dataFolder());
  start.version = TOVAK_VERSION;
  std::string reason;
  if (io.window(start, reason)) return start.engine == nullptr ? kStoppedByMessage : kFinished;
  printUnopenedWindow(io.err, start.messages, reason);
  return kCommandLineProblem;
}

ExitStatus runBatch(Preparation& prepared, const run::FormatTables& formats, const Surroundings& io) {
  run::RunSettings& settings = prepared.line.settings;
  settings.reportEnabled = false;
  const bool talkative = settings.BatchMode == 1;
  ConsolePerson person(io.err, talkative && io.errIsTerminal, io.hasDisplay);
  const run::RunResult result = run::convert(settings, *prepared.engine.engine, formats, person);
  person.endProgress();
  const bool begun = result.outcome != run::RunOutcome::Stopped || recordsRead(result.counts) > 0;
  if (!person.leftBatchMode() && !result.MessageText.empty()) {
    printMessage(io.err, {.text = result.MessageText, .title = "Batch Mode Error"});
  }
  if (talkative && begun) io.err << accountLine(result.counts) << std::endl;
  if (person.leftBatchMode()) runWindow(prepared, person.messagesForWindow(), formats, io);
  return exitStatus(result);
}

/// The engine that cannot be had, where the person looks.
ExitStatus stopWithoutEngine(const Preparation& prepared, bool inWindow, const run::FormatTables& formats,
                             const Surroundings& io) {
  run::Message message = prepared.engine.message;
  message.detail = prepared.engine.reason;
  if (!inWindow) printMessage(io.err, message);
  // The window shows it too; a log of whoever starts the program has it nowhere else.
  if (!message.detail.empty()) io.err << message.detail << std::endl;
  return inWindow ? runWindow(prepared, {message}, formats, io) : kStoppedByMessage;
}

}  // namespace

ExitStatus runProgram(const std::string& commandLine, const Surroundings& io) {
  const std::filesystem::path folder = run::dataFolder();
  prepareDataFolder(folder);
  run::FormatTables formats = formats::formatTables();
  formats.report = {.makeWriter = report::makeReportWriter, .version = TOVAK_VERSION, .today = io.today};
  if (asksForHelp(commandLine)) return showHelp(commandLine, formats, io);

  Preparation prepared;
  if (!text::trimBlanks(commandLine).empty()) prepared.line = parseCommandLine(commandLine, formats);
  CommandLine& line = prepared.line;
  const std::int16_t batchMode = line.settings.BatchMode;
  const bool faultyBatch = batchMode > 0 && !line.MessageText.empty();
  if (faultyBatch && (batchMode == 2 || !io.hasDisplay)) return refuse(io, line.MessageText);
  const bool inWindow = batchMode == 0 || faultyBatch;
  if (inWindow && !io.hasDisplay) {
    return refuse(io, "A display is needed for the main window; use -B or -Q to convert without one.");
  }

  prepared.engine = startEngine();
  if (prepared.engine.engine == nullptr) return stopWithoutEngine(prepared, inWindow, formats, io);
  if (!line.reportFileNamed) {
    line.settings.reportEnabled = true;
    line.settings.reportFileName = dailyReportName(folder, io.today());
  }
  formats::DefinitionsResult definitions = loadFormats(folder);
  prepared.delimitedFormats = std::move(definitions.table);
  prepared.definitionsFile = definitionsFile(folder);
  std::vector<run::Message> messages;
  if (!definitions.error.empty()) {
    messages.push_back(
        {.text = definitions.error + "\nOnly \"Tovak Standard\" is available.", .title = "Definitions File"});
  }
  if (faultyBatch) messages.push_back({.text = line.MessageText, .title = "Command Line Error"});
  if (inWindow) return runWindow(prepared, std::move(messages), formats, io);
  for (const run::Message& message : messages) printMessage(io.err, message);
  return runBatch(prepared, formats, io);
}

}  // namespace tovak::app
