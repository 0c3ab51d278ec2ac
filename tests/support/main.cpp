#include <clocale>
#include <locale>

#include <gtest/gtest.h>
#include <stdlib.h>

/// The tests run under the locale of their environment, C++ streams included: what depends on it comes out wrong under
/// one with a decimal comma.
int main(int count, char** arguments) {
  std::setlocale(LC_ALL, "");
  try {
    std::locale::global(std::locale(""));
  } catch (const std::runtime_error&) {
    std::locale::global(std::locale::classic());
  }
  // A test that needs a data folder has one of its own.
  setenv("APPDATA", "/dev/null", 1);
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
