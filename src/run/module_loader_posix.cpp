#include <dlfcn.h>

#include "run/executable_folder.h"
#include "run/module_loader.h"

namespace tovak::run {
namespace {

std::string lastLoaderError() {
  const char* const text = ::dlerror();
  return text == nullptr ? "unknown error" : text;
}

}  // namespace

std::filesystem::path executableFolder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

void* loadModuleFunction(const std::string& path, const char* functionName, std::string& reason) {
  void* const module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const function = module == nullptr ? nullptr : ::dlsym(module, functionName);
  if (function == nullptr) reason = lastLoaderError();
  return function;
}

}  // namespace tovak::run
