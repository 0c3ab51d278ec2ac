/// The help page of the command line.
#pragma once

#include <string>

#include "run/conversion_engine.h"
#include "run/formats.h"

namespace tovak::app {

/// Every switch with an example, the formats by number, and the projections by number and name as `engine` knows them;
/// without an engine, `reason` in their place.
std::string usagePage(const run::FormatTables& formats, run::ConversionEngine* engine, const std::string& reason);

}  // namespace tovak::app
