/// Numbers for points that have none.
#pragma once

#include <string>

#include "run/run_settings.h"

namespace tovak::run {

/// Puts the next default point number into `pointNumber` and moves the counter on.
void takeDefaultNumber(RunSettings& settings, std::string& pointNumber);

}  // namespace tovak::run
