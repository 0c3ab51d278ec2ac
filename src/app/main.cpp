#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <unistd.h>

#include "app/command_line.h"
#include "app/program.h"
#include "text/target_file.h"

namespace {

bool isSet(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

}  // namespace

int main(int count, char** arguments) {
  // A reader that goes away is an error of the write, with the file's name, not the end of the program.
  std::signal(SIGPIPE, SIG_IGN);
  tovak::text::removeUnfinishedFileOnSignals();
  try {
    const std::vector<std::string> values(arguments + 1, arguments + count);
    return tovak::app::runProgram(tovak::app::joinArguments(values),
                                  {.out = std::cout,
                                   .err = std::cerr,
                                   .errIsTerminal = isatty(STDERR_FILENO) == 1,
                                   .hasDisplay = isSet("DISPLAY") || isSet("WAYLAND_DISPLAY"),
                                   .window = tovak::app::openWindow});
  } catch (const std::exception& failure) {
    std::cerr << "Tovak: " << failure.what() << std::endl;
    return tovak::app::kStoppedByMessage;
  }
}
