/// The agency's KRV batch files, whose layout is not published.
#pragma once

#include "run/formats.h"

namespace tovak::formats::agency {

/// Says that KRV batch files cannot be converted, and touches no file.
bool refuseKrvBatch(const run::ExportContext& context);

}  // namespace tovak::formats::agency
