/// The items of a command line, before anything is checked.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "run/run_settings.h"

namespace tovak::app {

inline constexpr std::int16_t kNotGiven = -1;

/// The options of one side.
struct CommandSide {
  std::string fileName;
  std::int16_t projection = kNotGiven;
  std::int16_t format = kNotGiven;
  std::optional<bool> metres;
};

struct CommandItems {
  CommandSide source;
  CommandSide target;
  /// The options that concern both sides; files, formats and projections are not yet included.
  run::RunSettings settings;
  std::filesystem::path workingFolder;
  bool reportFileNamed = false;
  bool reportOfDay = false;  ///< "-R" without a name
  /// The file names before the source that end in ".tovak".
  std::vector<std::string> jobs;
  /// The line asks for an agency database run.
  bool agencyRun = false;
  /// A number that cannot be read, which ended the parsing; empty for none.
  std::string numberProblem;
  /// Numbers outside their list, one a line.
  std::string rangeProblems;
};

/// `before` are the settings that the line's options change.
CommandItems parseCommandItems(std::string_view line, const run::RunSettings& before = {});

/// The first item of the line that holds the help switch "-h", in either letter case, even inside the name of a file.
/// In the folder part of an existing file's name it does not count.
std::optional<std::string> itemAskingForHelp(std::string_view line);

}  // namespace tovak::app
