/// What the first line of a file that this program wrote says about the file.
#pragma once

#include <string_view>

#include "selection/selections.h"

namespace tovak::selection {

/// Takes the source's projection, unit and adjustment from an identification line. A projection on another datum than
/// the line declares is replaced with its twin on the declared one, if it has a twin. False, and nothing changed, for
/// any other line.
bool presetFromIdentification(Selections& selections, std::string_view line);

}  // namespace tovak::selection
