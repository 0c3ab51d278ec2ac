#include "run/module_loader.h"

#include <cstdlib>
#include <filesystem>

#include <dlfcn.h>

namespace tovak::run {
namespace {

namespace fs = std::filesystem;

fs::path executableFolder() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error).parent_path();
}

std::string lastLoaderError() {
  const char* const text = ::dlerror();
  return text == nullptr ? "unknown error" : text;
}

}  // namespace

std::string programFile(const std::string& fileName) {
  std::error_code error;
  const fs::path folder = executableFolder();
  const fs::path beside = folder / fileName;
  if (fs::exists(beside, error)) return beside.string();
  return (folder.parent_path() / TOVAK_MODULE_FOLDER / fileName).string();
}

std::string modulePath(const std::string& identifier, const char* overridingVariable) {
  std::error_code error;
  const char* const named = overridingVariable == nullptr ? nullptr : std::getenv(overridingVariable);
  // Without a folder the loader would search the system for it.
  if (named != nullptr && *named != '\0') return fs::absolute(named, error).string();
  return programFile(identifier.substr(0, identifier.find('.')) + TOVAK_MODULE_SUFFIX);
}

void* loadModuleFunction(const std::string& path, const char* functionName, std::string& reason) {
  void* const module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const function = module == nullptr ? nullptr : ::dlsym(module, functionName);
  if (function == nullptr) reason = lastLoaderError();
  return function;
}

}  // namespace tovak::run
