#include "run/system_data.h"

#include <cstddef>
#include <string_view>

#include "run/projection_code.h"

namespace tovak::run {
namespace {

/// Separates a name from a projection text.
constexpr char kSeparator = '~';
constexpr std::string_view kNoneSelected = "None Selected";

}  // namespace

std::string systemName(ConversionEngine& engine, std::int16_t code) {
  const std::string data = engine.GetProjectionData(code);
  return data.substr(0, data.find(kSeparator));
}

ProjectData projectData(ConversionEngine& engine) {
  const std::string data = engine.GetProjectionData(-kUserDefinedProject);
  const std::size_t separator = data.find(kSeparator);
  ProjectData project;
  project.name = data.substr(0, separator);
  if (separator != std::string::npos) project.projectionText = data.substr(separator + 1);
  project.noneSelected = data.find(kNoneSelected) != std::string::npos;
  return project;
}

bool giveProject(ConversionEngine& engine, const std::optional<UserProject>& project, std::string& told) {
  const std::int16_t answer = engine.GetProjectionFromText(projectRequest(project), told);
  if (!project || answer == kUserDefinedProject) return true;
  if (told.empty()) told = "The conversion engine takes no project of a job.";
  return false;
}

}  // namespace tovak::run
