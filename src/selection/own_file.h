/// What the first line of a file that this program wrote says about the file.
#pragma once

#include <string>
#include <string_view>

#include "selection/selections.h"

namespace tovak::selection {

/// Takes the source's projection, unit and adjustment from an identification line. A projection on another datum than
/// the line declares gives way to its twin on the declared one, where it has a twin. False, and nothing changed, for a
/// line that is none.
bool presetFromIdentification(Selections& selections, std::string_view line);

/// The same with the first line of a file; false also for a file that cannot be read.
bool presetFromFile(Selections& selections, const std::string& fileName);

}  // namespace tovak::selection
