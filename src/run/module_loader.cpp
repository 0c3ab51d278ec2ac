#include "run/module_loader.h"

#include <cstdlib>
#include <filesystem>

#include <dlfcn.h>

#include "run/data_folder.h"

namespace tovak::run {
namespace {

namespace fs = std::filesystem;

/// The system's name of this program. It is no folder: nothing is found in it.
constexpr const char* kExecutable = "/proc/self/exe";

/// Empty where the system does not tell it.
fs::path executableFolder() {
  std::error_code error;
  return fs::read_symlink(kExecutable, error).parent_path();
}

/// The file beside the executable, else the one in a folder of the installation, where it need not exist. Never one of
/// the
/// current folder, which anybody may have filled: without the executable's folder the name leads nowhere.
std::string besideExecutableOr(const char* installed, const std::string& fileName) {
  std::error_code error;
  const fs::path folder = executableFolder();
  if (folder.empty()) return (fs::path(kExecutable) / fileName).string();
  const fs::path beside = folder / fileName;
  return fs::exists(beside, error) ? beside.string() : (folder.parent_path() / installed / fileName).string();
}

std::string lastLoaderError() {
  const char* const text = ::dlerror();
  return text == nullptr ? "unknown error" : text;
}

}  // namespace

std::string programFile(const std::string& fileName) {
  return besideExecutableOr(TOVAK_DATA_FOLDER, fileName);
}

std::string dataFile(const std::string& fileName) {
  const fs::path folder = dataFolder();
  std::error_code error;
  // A broken link or a folder of that name is reported rather than ignored.
  const bool own = !folder.empty() && fs::symlink_status(folder / fileName, error).type() != fs::file_type::not_found;
  return own ? (folder / fileName).string() : programFile(fileName);
}

std::string modulePath(const std::string& identifier, const char* overridingVariable) {
  std::error_code error;
  const char* const named = overridingVariable == nullptr ? nullptr : std::getenv(overridingVariable);
  // Of a name without a folder the loader would search the system.
  if (named != nullptr && *named != '\0') return fs::absolute(named, error).string();
  return besideExecutableOr(TOVAK_MODULE_FOLDER, identifier.substr(0, identifier.find('.')) + TOVAK_MODULE_SUFFIX);
}

void* loadModuleFunction(const std::string& path, const char* functionName, std::string& reason) {
  void* const module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const function = module == nullptr ? nullptr : ::dlsym(module, functionName);
  if (function == nullptr) reason = lastLoaderError();
  return function;
}

}  // namespace tovak::run
