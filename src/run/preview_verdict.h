/// What there is to say of a preview in one line.
#pragma once

#include "run/preview.h"

namespace tovak::run {

/// Fills the verdict from the rest of the preview, for example "200 of the first 200 records would be converted", "10
/// of 12 refused: minutes or seconds of 60 or more", "12 of 12 records would be converted; 12 outside the usual area of
/// State plane Central, NAD83", or the text of its problem.
void tellVerdict(Preview& preview);

}  // namespace tovak::run
