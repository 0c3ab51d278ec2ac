#include <exception>
#include <iostream>
#include <string>

#include "app/console_person.h"
#include "app/program.h"
#include "text/environment.h"
#include "text/target_file.h"

int main(int count, char** arguments) {
  tovak::text::prepareStreams();
  tovak::text::removeUnfinishedFileOnSignals();
  try {
    return tovak::app::runArguments(tovak::text::programArguments(count, arguments),
                                    {.out = std::cout,
                                     .err = std::cerr,
                                     .errIsTerminal = tovak::text::errorsGoToTerminal(),
                                     .hasDisplay = TOVAK_HAS_WINDOW && tovak::text::hasDisplay(),
                                     .window = TOVAK_HAS_WINDOW ? tovak::app::openWindow : nullptr});
  } catch (const std::exception& failure) {
    tovak::app::printLine(std::cerr, std::string("Tovak: ") + failure.what());
    return tovak::app::kStoppedByMessage;
  }
}
