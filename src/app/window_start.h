/// What the program passes to the module of the main window, and the one function that the module exports.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "formats/delimited/definitions_file.h"
#include "run/conversion_engine.h"
#include "run/formats.h"
#include "run/message.h"
#include "run/run_settings.h"
#include "selection/job.h"

namespace tovak::app {

inline constexpr const char* kWindowIdentifier = "TovakWindow.Tvkn";

struct WindowStart {
  run::RunSettings settings;  ///< what the window opens with
  /// The job that the settings come from, as its file has it, and the file; nothing without one.
  std::optional<selection::Job> job;
  std::string jobFile;
  /// The report file of the day, which a job does not name; empty where it is not known.
  std::string dailyReport;
  /// Where file dialogs open; may be empty.
  std::filesystem::path workingFolder;
  /// Shown in this order once the window is open.
  std::vector<run::Message> messages;
  /// Null when the program cannot go on: then only the messages are shown, without the window.
  run::ConversionEngine* engine = nullptr;
  run::FormatTables formatTables;
  formats::delimited::DelimitedFormatTable delimitedFormats;
  std::string definitionsFile;  ///< where those formats are saved; empty without a data folder
  /// The codes by which files of the geodetic database are recognised (see `formats::database::isMapSheet`).
  std::string mapSheetCodes;
  /// The program's exit status when there is no display to open the window on.
  int statusWithoutDisplay = 0;
  std::string version;  ///< major, minor and revision numbers joined by "."
};

/// Opens the window and returns when it is closed. False: it could not, and `reason` receives one line that says why.
using WindowFunction = bool(const WindowStart& start, std::string& reason);
inline constexpr const char* kWindowFunctionName = "openTovakWindow";

}  // namespace tovak::app
