#include <csignal>
#include <cstdlib>

#include <unistd.h>

#include "text/environment.h"

namespace tovak::text {

std::optional<std::string> environmentValue(const char* variable) {
  const char* const value = std::getenv(variable);
  if (value == nullptr || *value == '\0') return std::nullopt;
  return value;
}

void removeFromEnvironment(const char* variable) {
  ::unsetenv(variable);
}

std::vector<std::string> programArguments(int count, char** arguments) {
  return {arguments + 1, arguments + count};
}

void prepareStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

bool errorsGoToTerminal() {
  return ::isatty(STDERR_FILENO) == 1;
}

bool hasDisplay() {
  return environmentValue("DISPLAY") || environmentValue("WAYLAND_DISPLAY");
}

}  // namespace tovak::text
