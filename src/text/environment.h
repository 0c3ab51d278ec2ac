/// What surrounds a program: variables, arguments, streams and the display.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tovak::text {

/// The value of an environment variable; nothing when it is not set or empty.
std::optional<std::string> environmentValue(const char* variable);

void removeFromEnvironment(const char* variable);

/// The arguments of the program without its name. On Windows, where `main` gets them in a character set that lacks most
/// letters, they are the system's own, in UTF-8.
std::vector<std::string> programArguments(int count, char** arguments);

/// From now on a reader that goes away, or a file that reaches the size limit of the shell, makes the write fail, and
/// does not end the program; and a console shows what is written to it as UTF-8.
void prepareStreams();

/// Whether standard error goes to a terminal.
bool errorsGoToTerminal();

/// Whether there is a desktop to open a window on. The window may still find that it cannot.
bool hasDisplay();

}  // namespace tovak::text
