/// What the tests ask of the operating system, besides what the program does.
#pragma once

#include <filesystem>
#include <string>

namespace tovak::tests {

/// Sets an environment variable; a null value takes it away.
void setVariable(const char* name, const char* value);

/// Makes a folder that nobody else has, with a letter beyond ASCII in its name where names are no bytes.
std::filesystem::path makeTemporaryFolder();

/// A name under which there is never a folder.
extern const char* const kNoFolder;

/// The bytes of a text file with LF as line end, whatever the system's is.
std::string withPlainLineEnds(std::string bytes);

}  // namespace tovak::tests
