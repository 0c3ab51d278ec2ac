// Mistakes made by people, files and other programs, and what a run from the command line says about them.
#include "support/golden_rows.h"
#include "support/program_fixture.h"

namespace tovak::app {
namespace {

using Mistakes = tests::ProgramFixture;

TEST_F(Mistakes, AreTold) {
  const std::string target = folder.file("out.txt");
  for (const auto& row : tests::goldenRows("mistakes.txt")) {
    SCOPED_TRACE(row[0]);
    folder.write("out.txt", "older");
    const int status = run(folder.write("in.txt", row[2]) + " " + target + " -Q " + row[1]);
    EXPECT_EQ(std::to_string(status), row[3]) << err.str();
    EXPECT_NE(err.str().find(row[4]), std::string::npos) << err.str();
    const bool written = status == kDoubts;
    EXPECT_EQ(tests::contentsOf(target) == "older", !written) << "nothing half done takes the place of a file";
  }
}

}  // namespace
}  // namespace tovak::app
