#include <QApplication>
#include <clocale>
#include <locale>

#include <gtest/gtest.h>

#include "support/system.h"

/// The main function of test programs with windows: they are drawn in memory, and like all others the tests run under
/// the locale of their environment.
int main(int count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  try {
    std::locale::global(std::locale(""));
  } catch (const std::runtime_error&) {
    std::locale::global(std::locale::classic());
  }
  // A test that needs a data folder has one of its own.
  tovak::tests::setVariable("APPDATA", tovak::tests::kNoFolder);
  testing::InitGoogleTest(&count, arguments);
  const QApplication application(count, arguments);
  std::setlocale(LC_ALL, "");
  return RUN_ALL_TESTS();
}
