/// The items of a command line, before anything is checked.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "run/run_settings.h"

namespace tovak::app {

inline constexpr std::int16_t kNotGiven = -1;

/// What one side's options said.
struct CommandSide {
  std::string fileName;
  std::int16_t projection = kNotGiven;
  std::int16_t format = kNotGiven;
  std::optional<bool> metres;
};

struct CommandItems {
  CommandSide source;
  CommandSide target;
  /// What the options said that concern both sides; files, formats and projections are not yet in it.
  run::RunSettings settings;
  std::filesystem::path workingFolder;
  bool reportFileNamed = false;
  /// The line asks for an agency database run.
  bool agencyRun = false;
  /// A number that cannot be read, which ended the parsing; empty for none.
  std::string numberProblem;
  /// Numbers beyond their list, a line each with its line end.
  std::string rangeProblems;
};

CommandItems parseCommandItems(std::string_view line);

}  // namespace tovak::app
