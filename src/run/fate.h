/// What becomes of a record that is a point.
#pragma once

#include <string_view>

namespace tovak::run {

enum class Fate { Converted, Doubtful, Refused };

/// "Converted", "Doubtful" or "Refused".
std::string_view fateName(Fate fate);

}  // namespace tovak::run
