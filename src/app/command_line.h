/// Reading and checking the command line.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "run/formats.h"
#include "run/run_settings.h"
#include "selection/job.h"

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
  /// The jobs that are named, and the one of them that `settings` begin with, as its file has it; nothing when it could
  /// not be read.
  std::vector<std::string> jobs;
  std::optional<selection::Job> job;
};

/// One line of the arguments, a value with blanks in double quotes: "a b.csv", -R"my report.rpt".
std::string joinArguments(const std::vector<std::string>& arguments);

/// The first argument whose quotation marks would keep it from being read as one value; empty for none.
std::string faultyArgument(const std::vector<std::string>& arguments);

/// Parses the line and checks the result. Items:
///
///   file names                 jobs, which end in ".tovak", then the source, then the target; later ones are ignored
///   -B -Q                      batch mode 1 and 2
///   -SPn -TPn                  projection code n - 1
///   -SUx -TUx                  E for U.S. survey feet, M for metres
///   -SFn -TFn                  format n of the list
///   -An                        1 to 3 degrees, minutes, seconds; 4 decimal degrees; 5 degrees and decimal minutes
///   -Fn                        accuracy n of the list
///   -Rname                     report file; without a name that of the day
///   -Yyear                     adjustment, only as the last item of the line
///
/// Other options are ignored. With a job everything else replaces what the job says, so nothing has to be there; and
/// what only a job can choose completely is not refused: the geodetic database, the agency exports, a project of its
/// own. Of several jobs the one in position `job` is taken.
CommandLine parseCommandLine(std::string_view line, const run::FormatTables& formats, std::size_t job = 0);

}  // namespace tovak::app
