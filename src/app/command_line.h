/// Reading and checking the command line.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "run/formats.h"
#include "run/run_settings.h"

namespace tovak::app {

struct CommandLine {
  /// What was understood, complete with projection texts and with what the formats bring along, as when they are
  /// chosen in the window; `BatchMode` is set by "-B" and "-Q", wherever they stand.
  run::RunSettings settings;
  /// Where file dialogs open: the folder of the source file. Empty when there is none.
  std::filesystem::path workingFolder;
  bool reportFileNamed = false;
  /// Every problem on a line of its own; empty when the command line can be carried out.
  std::string MessageText;
};

/// One line of the arguments, a value with blanks in double quotes: "a b.csv", -R"my report.rpt".
std::string joinArguments(const std::vector<std::string>& arguments);

/// The first argument whose quotation marks would keep it from being read as one value; empty for none.
std::string faultyArgument(const std::vector<std::string>& arguments);

/// Parses the line and checks the result. Items:
///
///   file names                 the first is the source, the second the target; later ones are ignored
///   -B -Q                      batch mode 1 and 2
///   -SPn -TPn                  projection code n - 1
///   -SUx -TUx                  E for U.S. survey feet, M for metres
///   -SFn -TFn                  format n of the list
///   -An                        1 to 3 degrees, minutes, seconds; 4 decimal degrees; 5 degrees and decimal minutes
///   -Fn                        accuracy n of the list
///   -Rname                     report file; without a name that of the day
///   -Yyear                     adjustment, only as the last item of the line
///
/// Other options are ignored.
CommandLine parseCommandLine(std::string_view line, const run::FormatTables& formats);

}  // namespace tovak::app
