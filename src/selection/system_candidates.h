/// Systems and units in which a file's points would lie where those of the system usually do.
#pragma once

#include <cstdint>
#include <vector>

#include "run/preview.h"
#include "selection/suggestions.h"

namespace tovak::selection {

struct SystemCandidate {
  std::int16_t code = 0;
  bool metres = false;
  double merit = 0.0;  ///< less is better
};

/// Plane systems for northings and eastings, best first: what differs least from the selections, then where the points
/// lie nearest to the middle of the usual area. The pair that is selected is not among them.
std::vector<SystemCandidate> systemCandidates(const std::vector<run::PreviewRow>& rows, const Selections& selections,
                                              const SuggestionTools& tools);

}  // namespace tovak::selection
