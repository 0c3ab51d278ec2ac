/// The table of the keys of job files: each with how its value is written and how it is read, side by side.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "run/formats.h"
#include "selection/job.h"

namespace tovak::selection {

struct JobContext {
  const run::FormatTables& formats;
  std::string folder;  ///< of the job, an absolute path
};

/// When a job without the key is refused.
enum class Needed {
  Never,            ///< the usual value is harmless
  Always,           ///< it decides coordinates, numbers, or what labels say about them
  ForSourceLayout,  ///< where the source has a layout of the person's choice
  ForTargetLayout,
  ForProject,  ///< where a side has the user-defined project, or the job says anything about it
};

struct JobKey {
  std::string_view name;
  Needed needed;
  std::string (*write)(const Job& job, const JobContext& context);
  /// Gives the reason why the value cannot be taken; empty when it was.
  std::string (*read)(Job& job, const JobContext& context, std::string_view value);
  /// Whether a job has something to write; null for always.
  bool (*present)(const Job& job) = nullptr;
};

/// In the order in which they are written.
std::span<const JobKey> jobKeys();

}  // namespace tovak::selection
