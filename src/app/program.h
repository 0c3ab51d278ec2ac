/// The program from its command line to its exit status.
#pragma once

#include <ostream>
#include <string>

#include "app/startup.h"
#include "app/window_start.h"

namespace tovak::app {

enum ExitStatus : int {
  kFinished = 0,
  kStoppedByMessage = 1,
  kCommandLineProblem = 2,
  kNotEverythingConverted = 3,
};

/// What the program stands in.
struct Surroundings {
  std::ostream& out;
  std::ostream& err;
  bool errIsTerminal = false;
  bool hasDisplay = false;
  /// The clock: the day of the report's name, and of the head of every report.
  text::Date (*today)() = text::today;
  /// Opens the window; see `openWindow`.
  WindowFunction* window = nullptr;
};

/// Loads the module of the main window and opens the window.
bool openWindow(const WindowStart& start, std::string& reason);

/// Carries out one command line (see `joinArguments`).
ExitStatus runProgram(const std::string& commandLine, const Surroundings& io);

}  // namespace tovak::app
