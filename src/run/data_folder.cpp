#include "run/data_folder.h"

#include "text/environment.h"
#include "text/native_path.h"

namespace tovak::run {
namespace {

std::filesystem::path folderFromEnvironment(const char* variable) {
  return text::pathOf(text::environmentValue(variable).value_or(""));
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
