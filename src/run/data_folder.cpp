#include "run/data_folder.h"

#include <cstdlib>

namespace tovak::run {
namespace {

std::filesystem::path folderFromEnvironment(const char* variable) {
  const char* value = std::getenv(variable);
  return value == nullptr ? std::filesystem::path() : std::filesystem::path(value);
}

}  // namespace

std::filesystem::path dataFolder() {
  constexpr const char* kFolderName = "QrAppsData";
  for (const char* variable : {"APPDATA", "XDG_DATA_HOME"}) {
    const std::filesystem::path parent = folderFromEnvironment(variable);
    if (!parent.empty()) return parent / kFolderName;
  }
  const std::filesystem::path home = folderFromEnvironment("HOME");
  return home.empty() ? home : home / ".local" / "share" / kFolderName;
}

}  // namespace tovak::run
