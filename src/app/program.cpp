#include "app/program.h"

#include <cerrno>
#include <filesystem>
#include <string_view>

#include "app/account_line.h"
#include "app/command_line.h"
#include "app/console_person.h"
#include "app/usage.h"
#include "formats/format_tables.h"
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

ExitStatus runBatch(run::RunSettings& settings, run::ConversionEngine& engine, const run::FormatTables& formats,
                    const Surroundings& io) {
  settings.reportEnabled = false;
  const bool talkative = settings.BatchMode == 1;
  run::RunResult result;
  {
    ConsolePerson person(io.err, talkative && io.errIsTerminal);
    result = run::convert(settings, engine, formats, person);
  }
  if (!result.MessageText.empty()) printMessage(io.err, {.text = result.MessageText, .title = "Batch Mode Error"});
  const bool begun = result.outcome != run::RunOutcome::Stopped || recordsRead(result.counts) > 0;
  if (talkative && begun) io.err << accountLine(result.counts) << std::endl;
  return exitStatus(result);
}

}  // namespace

ExitStatus runProgram(const std::string& commandLine, const Surroundings& io) {
  const std::filesystem::path folder = run::dataFolder();
  prepareDataFolder(folder);
  const run::FormatTables formats = formats::formatTables();
  if (asksForHelp(commandLine)) return showHelp(commandLine, formats, io);

  CommandLine line = parseCommandLine(commandLine, formats);
  if (line.settings.BatchMode == 0) {
    return refuse(io, io.hasDisplay ? "The main window is not available yet; use -B or -Q."
                                    : "A display is needed for the main window; use -B or -Q to convert without one.");
  }
  if (!line.MessageText.empty()) return refuse(io, line.MessageText);

  const EngineStart start = startEngine();
  if (start.engine == nullptr) {
    printMessage(io.err, start.message);
    if (!start.reason.empty()) io.err << start.reason << std::endl;
    return kStoppedByMessage;
  }
  if (!line.reportFileNamed) line.settings.reportFileName = dailyReportName(folder, io.today);
  const formats::DefinitionsResult definitions = loadFormats(folder);
  if (!definitions.error.empty()) {
    printMessage(io.err,
                 {.text = definitions.error + "\nOnly \"Tovak Standard\" is available.", .title = "Definitions File"});
  }
  return runBatch(line.settings, *start.engine, formats, io);
}

}  // namespace tovak::app
