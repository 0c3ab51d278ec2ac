#include <cstdlib>

#include <unistd.h>

namespace {

/// Every test program works in the project's folder, from before its first constant, some of which are samples.
[[gnu::constructor(101)]] void enterProjectFolder() {
  if (chdir(TOVAK_PROJECT_FOLDER) != 0) std::abort();
}

}  // namespace
