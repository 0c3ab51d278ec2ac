#include <cstdint>
#include <cstdlib>

#include <windows.h>

#include "support/system.h"
#include "text/native_path.h"
#include "text/number.h"

namespace tovak::tests {

// A character that no name may hold.
const char* const kNoFolder = "?";

void setVariable(const char* name, const char* value) {
  ::_wputenv_s(text::pathOf(name).c_str(), text::pathOf(value == nullptr ? "" : value).c_str());
}

std::filesystem::path makeTemporaryFolder() {
  for (std::int64_t number = 0;; ++number) {
    std::string name = "tovak_test_\u00C4_";
    text::appendWhole(name, static_cast<std::int64_t>(::GetCurrentProcessId()));
    name += '_';
    text::appendWhole(name, number);
    std::filesystem::path folder = std::filesystem::temp_directory_path() / text::pathOf(name);
    if (std::filesystem::create_directory(folder)) return folder;
  }
}

std::string withPlainLineEnds(std::string bytes) {
  for (std::size_t at = 0; (at = bytes.find("\r\n", at)) != std::string::npos;) bytes.erase(at, 1);
  return bytes;
}

}  // namespace tovak::tests
