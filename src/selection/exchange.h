/// Source and target change places: what was written is read again, on the way back.
#pragma once

#include "selection/selections.h"

namespace tovak::selection {

/// Not with the geodetic database, which has a projection of its own, nor in an agency batch run.
bool canExchangeSides(const Selections& selections, const run::FormatTables& formats);

/// Whether the formats would change places too: both are formats of files that can be read and written.
bool formatsCanExchange(const Selections& selections);

/// Exchanges projections and units, and where `formatsCanExchange` the formats with their layouts and file names. A
/// file name stays with its format: otherwise a file would be read as what it is not, or replaced.
void exchangeSides(Selections& selections, const run::FormatTables& formats);

}  // namespace tovak::selection
