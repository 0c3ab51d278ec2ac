/// The two tables of formats. The window's lists, the command line and the help page walk them; a format's position
/// here is its index everywhere.
///
/// To add a format: write its reader and/or writer in a file pair of its own, and name the functions that make them on
/// its card here. CONTRIBUTING.md has the whole list of steps.
#pragma once

#include "run/formats.h"

namespace tovak::formats {

run::FormatTables formatTables();

}  // namespace tovak::formats
