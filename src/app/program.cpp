#include "app/program.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/batch_run.h"
#include "app/command_items.h"
#include "app/command_line.h"
#include "app/console_person.h"
#include "app/usage.h"
#include "formats/delimited/built_in_formats.h"
#include "formats/format_tables.h"
#include "report/report_writer.h"
#include "run/data_folder.h"
#include "run/module_loader.h"
#include "text/characters.h"
#include "text/native_path.h"
#include "text/strings.h"
#include "text/system_error.h"

namespace tovak::app {
namespace {

/// Whether the help switch is all there is.
bool isHelpSwitch(std::string_view commandLine) {
  const std::string_view given = text::trimBlanks(commandLine);
  return text::equalsIgnoringCase(given, "-h") || text::equalsIgnoringCase(given, "--help");
}

ExitStatus showHelp(std::string_view commandLine, const std::string& item, const run::FormatTables& formats,
                    const Surroundings& io) {
  const EngineStart start = startEngine();
  const std::string& reason = start.reason.empty() ? start.message.text : start.reason;
  const std::string page = text::withVisibleControls(usagePage(formats, start.engine.get(), reason));
  if (isHelpSwitch(commandLine)) {
    errno = 0;
    io.out << page << std::flush;
    // A pager that was quit early has shown enough.
    if (io.out.good() || errno == EPIPE) return kFinished;
    io.err << text::systemErrorText("standard output", text::lastSystemError()) << std::endl;
    return kStoppedByMessage;
  }
  io.err << page << '\n';
  printLine(io.err, "Nothing was converted: \"-h\", which asks for this page, is in the argument " + item);
  return kCommandLineProblem;
}

ExitStatus refuse(const Surroundings& io, const std::string& text) {
  printMessage(io.err, {.text = text, .title = "Command Line Error"});
  return kCommandLineProblem;
}

/// The part of the start that batch runs and the window share.
struct Preparation {
  CommandLine line;
  EngineStart engine;
  text::Result<run::UsualAreas> areas;
  std::string dailyReport;
  formats::delimited::DelimitedFormatTable delimitedFormats;
  std::string definitionsFile;
};

/// Opens the window with what is known so far; a batch run's problems come first among its messages. `status` is that
/// of a batch run that turns to the window.
ExitStatus runWindow(const Preparation& prepared, std::vector<run::Message> messages, ExitStatus status,
                     const run::FormatTables& formats, const Surroundings& io) {
  WindowStart start;
  start.settings = prepared.line.settings;
  start.settings.BatchMode = 0;
  start.job = prepared.line.job;
  if (start.job) start.jobFile = std::filesystem::absolute(text::pathOf(prepared.line.jobs.front())).string();
  start.dailyReport = prepared.dailyReport;
  start.workingFolder = prepared.line.workingFolder;
  start.messages = std::move(messages);
  start.engine = prepared.engine.engine.get();
  start.formatTables = formats;
  start.delimitedFormats = prepared.delimitedFormats;
  start.definitionsFile = prepared.definitionsFile;
  start.mapSheetCodes = loadMapSheetCodes(run::dataFolder());
  start.version = TOVAK_VERSION;
  const ExitStatus unopened = status == kFinished ? kCommandLineProblem : status;
  start.statusWithoutDisplay = unopened;
  std::string reason;
  if (io.window(start, reason)) return status;
  printUnopenedWindow(io.err, start.messages, reason);
  return unopened;
}

/// Reports, where the person looks, that there is no engine.
ExitStatus stopWithoutEngine(const Preparation& prepared, bool inWindow, const run::FormatTables& formats,
                             const Surroundings& io) {
  run::Message message = prepared.engine.message;
  message.detail = prepared.engine.reason;
  if (!inWindow) printMessage(io.err, message);
  // The window shows it too; this is for a log of standard error.
  if (!message.detail.empty()) printLine(io.err, message.detail);
  return inWindow ? runWindow(prepared, {message}, kStoppedByMessage, formats, io) : kStoppedByMessage;
}

/// Starts the engine, and reads the usual areas of its systems. Without the areas there is no engine either.
void startUp(Preparation& prepared, run::FormatTables& formats) {
  prepared.engine = startEngine();
  prepared.areas = run::readUsualAreas(run::dataFile("areas.txt"));
  if (prepared.areas) formats.areas = &*prepared.areas;
  if (prepared.engine.engine == nullptr || prepared.areas) return;
  prepared.engine = {
      .engine = nullptr, .message = {.text = prepared.areas.error, .title = "Usual Areas"}, .reason = {}};
}

/// Reads the delimited formats; the message about a faulty file, if it is one.
std::vector<run::Message> takeDefinitions(Preparation& prepared, const std::filesystem::path& folder) {
  const text::Result<formats::delimited::DelimitedFormatTable> definitions = loadFormats(folder);
  prepared.delimitedFormats =
      definitions ? *definitions : formats::delimited::DelimitedFormatTable{formats::delimited::standardFormat()};
  prepared.definitionsFile = definitionsFile(folder);
  if (definitions) return {};
  return {{.text = definitions.error + "\nOnly \"Tovak Standard\" is available.", .title = "Definitions File"}};
}

}  // namespace

ExitStatus runProgram(const std::string& commandLine, const Surroundings& io) {
  const std::filesystem::path folder = run::dataFolder();
  prepareDataFolder(folder);
  run::FormatTables formats = formats::formatTables();
  formats.report = {.makeWriter = report::makeReportWriter,
                    .version = TOVAK_VERSION,
                    .today = io.today,
                    .joint = report::reportJoint};
  if (const std::optional<std::string> item = itemAskingForHelp(commandLine)) {
    return showHelp(commandLine, *item, formats, io);
  }

  Preparation prepared;
  if (!text::trimBlanks(commandLine).empty()) prepared.line = parseCommandLine(commandLine, formats);
  CommandLine& line = prepared.line;
  const std::int16_t batchMode = line.settings.BatchMode;
  // In the window a problem of the line can still be solved; a job that cannot be read is a problem there too.
  const bool unreadJob = !line.jobs.empty() && !line.job;
  const bool several = line.jobs.size() > 1 && batchMode > 0;
  const bool faulty = !line.MessageText.empty() && (batchMode > 0 || unreadJob) && !several;
  if (faulty && (batchMode == 2 || !io.hasDisplay)) return refuse(io, line.MessageText);
  const bool inWindow = batchMode == 0 || faulty;
  if (inWindow && !io.hasDisplay) {
    return refuse(io, io.window == nullptr
                          ? "This build of Tovak has no window; use -B or -Q to convert."
                          : "A display is needed for the main window; use -B or -Q to convert without one.");
  }

  startUp(prepared, formats);
  if (prepared.engine.engine == nullptr) return stopWithoutEngine(prepared, inWindow, formats, io);
  prepared.dailyReport = dailyReportName(folder, io.today());
  if (line.job) {
    nameReportOfJob(line, prepared.dailyReport);
  } else if (!line.reportFileNamed) {
    line.settings.reportEnabled = true;
    line.settings.reportFileName = prepared.dailyReport;
  }
  std::vector<run::Message> messages = takeDefinitions(prepared, folder);
  if (faulty) messages.push_back({.text = line.MessageText, .title = "Command Line Error"});
  const ExitStatus status = faulty ? kCommandLineProblem : kFinished;
  if (inWindow) return runWindow(prepared, std::move(messages), status, formats, io);
  for (const run::Message& message : messages) printMessage(io.err, message);
  const BatchTools tools = {.engine = *prepared.engine.engine, .formats = formats, .io = io};
  if (several) return runJobs(commandLine, line, prepared.dailyReport, tools);
  const BatchRun run = runBatch(line, tools);
  if (run.leftBatchMode) runWindow(prepared, run.messagesForWindow, run.status, formats, io);
  return run.status;
}

ExitStatus runArguments(const std::vector<std::string>& arguments, const Surroundings& io) {
  const std::string faulty = faultyArgument(arguments);
  if (!faulty.empty()) return refuse(io, "Quotation Marks Cannot Be Read: " + faulty);
  return runProgram(joinArguments(arguments), io);
}

}  // namespace tovak::app
