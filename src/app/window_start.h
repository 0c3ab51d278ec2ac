/// What the program hands to the module of the main window, and the one function that module exports.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "formats/delimited/definitions_file.h"
#include "run/conversion_engine.h"
#include "run/conversion_run.h"
#include "run/formats.h"
#include "run/message.h"
#include "run/run_settings.h"

namespace tovak::app {

inline constexpr const char* kWindowIdentifier = "TovakWindow.Tvkn";

struct WindowStart {
  run::RunSettings settings;  ///< what the window opens with
  /// Where file dialogs open; empty for nowhere in particular.
  std::filesystem::path workingFolder;
  /// Shown in this order once the window stands.
  std::vector<run::Message> messages;
  /// Null when the program cannot go on: then the messages are shown alone, and no window.
  run::ConversionEngine* engine = nullptr;
  run::FormatTables formatTables;
  formats::DelimitedFormatTable delimitedFormats;
  std::string definitionsFile;  ///< where those formats are saved; empty without a data folder
  /// By which files of the geodetic database are recognised (see `formats::isMapSheet`).
  std::string mapSheetCodes;
  /// The run. The window calls the executable's, which knows of unfinished files when a signal ends the program.
  run::RunResult (*convert)(run::RunSettings&, run::ConversionEngine&, const run::FormatTables&,
                            run::Person&) = run::convert;
  std::string version;  ///< major, minor and revision numbers joined by "."
};

/// Opens the window and returns when it is closed. False: it could not, and `reason` receives one line that says why.
using WindowFunction = bool(const WindowStart& start, std::string& reason);
inline constexpr const char* kWindowFunctionName = "openTovakWindow";

}  // namespace tovak::app
