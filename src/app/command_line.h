/// The command line: what it says, and what is wrong with it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "run/formats.h"
#include "run/run_settings.h"

namespace tovak::app {

struct CommandLine {
  /// What was understood, complete with projection texts; `BatchMode` is set by "-B" and "-Q".
  run::RunSettings settings;
  /// Where file dialogs open: the folder of the source file. Empty when there is none.
  std::filesystem::path workingFolder;
  bool reportFileNamed = false;
  /// Every problem on a line of its own; empty when the command line can be carried out.
  std::string MessageText;
};

/// One line of the arguments, a value with blanks in double quotes: "a b.csv", -R"my report.rpt". An argument that
/// already holds quotes is left as it is.
std::string joinArguments(const std::vector<std::string>& arguments);

/// True when the help switch "-h" stands anywhere in the line, in either letter case, even inside a file name.
bool asksForHelp(std::string_view line);

/// Parses the line and checks what came out. Items:
///
///   file names                 the first is the source, the second the target; later ones are ignored
///   -B -Q                      batch mode 1 and 2
///   -SPn -TPn                  projection code n - 1
///   -SUx -TUx                  E for U.S. survey feet, M for metres
///   -SFn -TFn                  format n of the list
///   -An                        1 to 3 degrees, minutes, seconds; 4 decimal degrees; 5 degrees and decimal minutes
///   -Fn                        accuracy n of the list
///   -Rname                     report file
///   -Yyear                     adjustment, on the last place of the line only
///
/// Other options are ignored.
CommandLine parseCommandLine(std::string_view line, const run::FormatTables& formats);

}  // namespace tovak::app
