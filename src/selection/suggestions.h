/// What to change in the selections, as suggested by a look at the source file. Nothing is changed automatically,
/// except where a file is taken before anything else was chosen.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "run/conversion_engine.h"
#include "run/delimited_format.h"
#include "run/formats.h"
#include "selection/selections.h"

namespace tovak::selection {

/// What is needed to try suggestions.
struct SuggestionTools {
  run::ConversionEngine& engine;
  const run::FormatTables& formats;
  std::span<const run::DelimitedFormat> layouts;  ///< the defined formats, in their order
};

struct Suggestion {
  std::string label;   ///< for a button, such as "Read angles as decimal degrees"
  std::string reason;  ///< a sentence or two
  /// Makes the change. Where the selections then use the geodetic database, its files are still to be chosen
  /// (`chooseDatabaseSource`).
  std::function<void(Selections&)> apply;
};

/// The suggestions for a source file, first those that the others depend on. None for a file that is read without
/// trouble, for the keyboard, for agency runs and for anything but an ordinary file. Each was tried: with its change
/// alone, all records of the file's beginning are read as points where they may lie.
std::vector<Suggestion> suggestionsFor(const Selections& selections, const SuggestionTools& tools);

struct TakenFile {
  bool format = false;  ///< the format by the file's content; see `Suggestion::apply` for the geodetic database
  bool system = false;  ///< projection, unit and adjustment from the file's first line
};

/// Call this when a source file has been chosen or dropped, and named. While the source is still the keyboard, it sets
/// the format, and the delimiter, straight away by the file's content. For a file that this program wrote it takes the
/// system from the first line, and the form of its latitudes and longitudes where the standard layout reads them.
TakenFile takeSourceFile(Selections& selections, const SuggestionTools& tools);

}  // namespace tovak::selection
