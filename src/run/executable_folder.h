/// Where the program lies.
#pragma once

#include <filesystem>

namespace tovak::run {

/// The folder of the executable; empty where the system does not tell it.
std::filesystem::path executableFolder();

}  // namespace tovak::run
