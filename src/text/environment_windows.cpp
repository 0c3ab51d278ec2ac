#include <cstdlib>

#include <io.h>
#include <windows.h>

#include "text/environment.h"
#include "text/native_path.h"

namespace tovak::text {
namespace {

std::string utf8Of(const wchar_t* text) {
  return std::filesystem::path(text).string();
}

}  // namespace

std::optional<std::string> environmentValue(const char* variable) {
  const wchar_t* const value = ::_wgetenv(pathOf(variable).c_str());
  if (value == nullptr || *value == L'\0') return std::nullopt;
  return utf8Of(value);
}

void removeFromEnvironment(const char* variable) {
  ::_wputenv_s(pathOf(variable).c_str(), L"");
}

std::vector<std::string> programArguments(int /*count*/, char** /*arguments*/) {
  int count = 0;
  wchar_t** const wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(utf8Of(wide[i]));
  ::LocalFree(wide);
  return arguments;
}

void prepareStreams() {
  ::SetConsoleOutputCP(CP_UTF8);
}

bool errorsGoToTerminal() {
  constexpr int kStandardError = 2;
  return ::_isatty(kStandardError) != 0;
}

bool hasDisplay() {
  // A service, or a task that runs while nobody is logged on, has a window station that nobody sees.
  USEROBJECTFLAGS flags{};
  const HWINSTA station = ::GetProcessWindowStation();
  return station != nullptr && ::GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof flags, nullptr) != 0 &&
         (flags.dwFlags & WSF_VISIBLE) != 0;
}

}  // namespace tovak::text
