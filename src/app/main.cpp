#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <unistd.h>

#include "app/console_person.h"
#include "app/program.h"
#include "text/target_file.h"

namespace {

bool isSet(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

}  // namespace

int main(int count, char** arguments) {
  // A reader that goes away makes the write fail, with the file's name; it does not end the program.
  std::signal(SIGPIPE, SIG_IGN);
  // The same goes for a file that reaches the size limit of the shell.
  std::signal(SIGXFSZ, SIG_IGN);
  tovak::text::removeUnfinishedFileOnSignals();
  try {
    return tovak::app::runArguments({arguments + 1, arguments + count},
                                    {.out = std::cout,
                                     .err = std::cerr,
                                     .errIsTerminal = isatty(STDERR_FILENO) == 1,
                                     .hasDisplay = TOVAK_HAS_WINDOW && (isSet("DISPLAY") || isSet("WAYLAND_DISPLAY")),
                                     .window = TOVAK_HAS_WINDOW ? tovak::app::openWindow : nullptr});
  } catch (const std::exception& failure) {
    tovak::app::printLine(std::cerr, std::string("Tovak: ") + failure.what());
    return tovak::app::kStoppedByMessage;
  }
}
