#include "run/engine_loader.h"

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

fs::path modulePath(const std::string& identifier) {
  const char* const named = std::getenv("TOVAKX_COMPONENT");
  if (named != nullptr && *named != '\0') {
    // Without a folder the loader would search the system for it.
    std::error_code error;
    return fs::absolute(named, error);
  }
  const std::string fileName = identifier.substr(0, identifier.find('.')) + TOVAK_MODULE_SUFFIX;
  const fs::path folder = executableFolder();
  const fs::path beside = folder / fileName;
  std::error_code error;
  if (fs::exists(beside, error)) return beside;
  return folder.parent_path() / TOVAK_MODULE_FOLDER / fileName;
}

std::string lastLoaderError() {
  const char* const text = ::dlerror();
  return text == nullptr ? "unknown error" : text;
}

}  // namespace

EngineResult createEngine(const std::string& identifier) {
  const std::string path = modulePath(identifier).string();
  void* const module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) return {nullptr, lastLoaderError()};
  void* const symbol = ::dlsym(module, kEngineFactoryName);
  if (symbol == nullptr) return {nullptr, lastLoaderError()};
  EngineResult result;
  result.engine.reset(reinterpret_cast<EngineFactory*>(symbol)(result.reason));
  if (result.engine == nullptr && result.reason.empty()) result.reason = path + ": the engine did not start";
  return result;
}

}  // namespace tovak::run
