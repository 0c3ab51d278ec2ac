#include <clocale>
#include <locale>

#include <gtest/gtest.h>

#include "support/system.h"

/// The tests run under the locale of their environment, C++ streams included: code that depends on the locale gives
/// wrong results under one with a decimal comma.
int main(int count, char** arguments) {
  std::setlocale(LC_ALL, "");
  try {
    std::locale::global(std::locale(""));
  } catch (const std::runtime_error&) {
    std::locale::global(std::locale::classic());
  }
  // A test that needs a data folder has one of its own.
  tovak::tests::setVariable("APPDATA", tovak::tests::kNoFolder);
  // PROJ's database is the one that came with the library, whatever the environment says.
  for (const char* variable : {"PROJ_DATA", "PROJ_LIB"}) tovak::tests::setVariable(variable, nullptr);
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
