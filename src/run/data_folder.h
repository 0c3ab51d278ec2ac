/// The folder with the files of one user.
#pragma once

#include <filesystem>

namespace tovak::run {

/// The per-user data folder "QrAppsData": under the folder named by the environment variable APPDATA, else under
/// XDG_DATA_HOME, else under ~/.local/share. Empty when none of these (nor HOME) is set. Nothing is created.
std::filesystem::path dataFolder();

}  // namespace tovak::run
