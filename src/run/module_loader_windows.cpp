#include <windows.h>

#include "run/executable_folder.h"
#include "run/module_loader.h"
#include "text/native_path.h"
#include "text/system_error.h"

namespace tovak::run {

std::filesystem::path executableFolder() {
  constexpr std::size_t kLongestName = 32768;
  std::wstring name(kLongestName, L'\0');
  name.resize(::GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
  return std::filesystem::path(name).parent_path();
}

void* loadModuleFunction(const std::string& path, const char* functionName, std::string& reason) {
  // Its own libraries lie beside it; neither the current folder nor those of PATH are searched for them.
  const DWORD searched = LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS;
  const HMODULE module = ::LoadLibraryExW(text::pathOf(path).make_preferred().c_str(), nullptr, searched);
  void* const function = module == nullptr ? nullptr : reinterpret_cast<void*>(::GetProcAddress(module, functionName));
  if (function == nullptr) reason = text::systemErrorText(path, text::lastSystemError());
  return function;
}

}  // namespace tovak::run
