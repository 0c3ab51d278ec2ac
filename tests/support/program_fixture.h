/// A data folder of the test's own, the engine beside the program, and what is written to the two output streams.
#pragma once

#include <sstream>

#include <gtest/gtest.h>

#include "app/program.h"
#include "support/environment.h"
#include "support/temporary_folder.h"

namespace tovak::tests {

class ProgramFixture : public testing::Test {
 protected:
  app::ExitStatus run(const std::string& line, app::WindowFunction* window = nullptr) {
    out.str({});
    err.str({});
    return app::runProgram(line,
                           {.out = out, .err = err, .hasDisplay = window != nullptr, .today = aDay, .window = window});
  }
  static text::Date aDay() { return {2026, 11, 21}; }

  const TemporaryFolder folder;
  const EnvironmentVariable appData{"APPDATA", folder.file("AppData")};
  const EnvironmentVariable component{"TOVAKX_COMPONENT", nullptr};
  std::ostringstream out;
  std::ostringstream err;
};

}  // namespace tovak::tests
