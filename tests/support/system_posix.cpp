#include <cstdlib>

#include "support/system.h"

namespace tovak::tests {

const char* const kNoFolder = "/dev/null";

void setVariable(const char* name, const char* value) {
  if (value != nullptr) {
    ::setenv(name, value, 1);
  } else {
    ::unsetenv(name);
  }
}

std::filesystem::path makeTemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "tovak_test_XXXXXX").string();
  return ::mkdtemp(pattern.data());
}

std::string withPlainLineEnds(std::string bytes) {
  return bytes;
}

}  // namespace tovak::tests
