/// What the engine says about its systems, split into its parts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "run/conversion_engine.h"
#include "run/user_project.h"

namespace tovak::run {

/// The engine's name of a system, such as "State plane South, NAD83"; empty for a code it does not know.
std::string systemName(ConversionEngine& engine, std::int16_t code);

/// The user-defined project as the engine has it now.
struct ProjectData {
  std::string name;            ///< or "None Selected", or why the project cannot be used
  std::string projectionText;  ///< with the mark of its unit; empty for a project that cannot be used
  bool noneSelected = false;   ///< no project has been set up

  bool usable() const { return !projectionText.empty(); }
};

ProjectData projectData(ConversionEngine& engine);

/// Makes the project of a job, or with nothing that of the data folder, the engine's user-defined project. False: the
/// job's cannot be used. `told` receives what the engine says about it.
bool giveProject(ConversionEngine& engine, const std::optional<UserProject>& project, std::string& told);

}  // namespace tovak::run
