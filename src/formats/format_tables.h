/// The two tables of formats. The window's lists, the command line and the help page walk them; a format's position
/// here is its index everywhere.
///
/// To add a format: write its reader and/or writer in a file pair of its own, and put the functions that make them on
/// its card here.
#pragma once

#include "run/formats.h"

namespace tovak::formats {

run::FormatTables formatTables();

}  // namespace tovak::formats
