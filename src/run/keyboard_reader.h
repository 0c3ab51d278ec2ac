/// Points typed by the person, one at a time.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::run {

std::unique_ptr<PointReader> makeKeyboardReader(const SourceContext& context);

}  // namespace tovak::run
