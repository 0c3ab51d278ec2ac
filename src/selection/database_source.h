/// Choosing the geodetic database as source: its map sheets are found and scanned.
#pragma once

#include <functional>
#include <optional>

#include "run/message.h"
#include "selection/selections.h"

namespace tovak::selection {

struct DatabaseOutcome {
  bool missing = false;                 ///< the source file is not there
  std::optional<run::Message> problem;  ///< to be shown
};

/// Puts a question to the person.
using Ask = std::function<run::Answer(const run::Message& question)>;

/// Chooses the database with the source file that is named. When there are several map sheets of its county, the person
/// is asked whether to read them all. Afterwards no adjustment is chosen, and the lists show what the sheets have.
///
/// The source becomes the keyboard, and the lists stay as they were, when the file is not there, the question was
/// cancelled, or there is a problem: a path without ".csv", too many sheets, a file that cannot be reached or read.
DatabaseOutcome chooseDatabaseSource(Selections& selections, const run::FormatTables& formats, const Ask& ask);

}  // namespace tovak::selection
