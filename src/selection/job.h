/// A job: everything that a run needs, as a document.
#pragma once

#include <string>

#include "run/run_settings.h"

namespace tovak::selection {

struct Job {
  run::RunSettings settings;
  /// The engine's names of the two systems when the job was saved; empty where they are not known. The number of a
  /// system in the agency's list may have come to stand for another one.
  std::string sourceSystem = {};
  std::string targetSystem = {};
};

}  // namespace tovak::selection
