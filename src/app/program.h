/// The program from its command line to its exit status.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "app/startup.h"
#include "app/window_start.h"

namespace tovak::app {

enum ExitStatus : int {
  kFinished = 0,
  kStoppedByMessage = 1,
  kCommandLineProblem = 2,
  kNotEverythingConverted = 3,
  kDoubts = 4,  ///< everything was converted, but there are doubts
};

/// The environment of the program.
struct Surroundings {
  std::ostream& out;
  std::ostream& err;
  bool errIsTerminal = false;
  bool hasDisplay = false;  ///< never without a `window`
  /// The clock: the day of the report's name, and of the head of every report.
  text::Date (*today)() = text::today;
  /// Opens the window; see `openWindow`. Null in a build without one.
  WindowFunction* window = nullptr;
};

/// Loads the module of the main window and opens the window.
bool openWindow(const WindowStart& start, std::string& reason);

/// Carries out one command line (see `joinArguments`).
ExitStatus runProgram(const std::string& commandLine, const Surroundings& io);

/// Carries out the command line made of these arguments, unless one of them cannot be used.
ExitStatus runArguments(const std::vector<std::string>& arguments, const Surroundings& io);

}  // namespace tovak::app
