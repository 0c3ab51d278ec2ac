/// What the program prepares before it can convert: the data folder with its definitions file, the engine, the name of
/// the daily report.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "formats/delimited/definitions_file.h"
#include "run/conversion_engine.h"
#include "run/message.h"
#include "text/date.h"

namespace tovak::app {

/// Creates the data folder when it is missing, and copies the installed definitions file (in the folder named by the
/// environment variable ProgramFiles, under "Tovak") into it when it holds none; an existing one is never touched.
/// Failures are not reported: the file is then created from scratch.
void prepareDataFolder(const std::filesystem::path& dataFolder);

/// The definitions file of a data folder; empty without one.
std::string definitionsFile(const std::filesystem::path& dataFolder);

/// The definitions file's formats, "Tovak Standard" alone without a data folder, or what is wrong with the file. A file
/// that is missing is created.
text::Result<formats::delimited::DelimitedFormatTable> loadFormats(const std::filesystem::path& dataFolder);

/// The list of map sheet codes in the data folder, else the one beside the executable.
std::string loadMapSheetCodes(const std::filesystem::path& dataFolder);

/// The report file of a day: "Tovak", the date as mm-dd-yyyy and ".rpt", in the data folder.
std::string dailyReportName(const std::filesystem::path& dataFolder, const text::Date& date);

struct EngineStart {
  std::unique_ptr<run::ConversionEngine> engine;  ///< null when the program cannot go on
  run::Message message;                           ///< then the message to show
  std::string reason;                             ///< and its cause, when that is known
};

/// Creates the program's engine and checks its version.
EngineStart startEngine();

}  // namespace tovak::app
