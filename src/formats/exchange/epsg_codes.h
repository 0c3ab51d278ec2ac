/// The numbers of coordinate systems in the EPSG registry.
#pragma once

#include <optional>

#include "run/run_settings.h"

namespace tovak::formats::exchange {

/// The number of the target's system with its unit and its year of NAD83. Nothing for systems that are not registered:
/// county zones, the user-defined project, UTM in feet, zones of NAD27 in metres; and nothing for NAD83(1996), for
/// which the registry has no datum of that name.
std::optional<int> epsgCode(const run::RunSettings& settings);

}  // namespace tovak::formats::exchange
