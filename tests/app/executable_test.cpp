#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/environment.h"
#include "support/temporary_folder.h"

namespace tovak::app {
namespace {

using tests::contentsOf;

class Executable : public testing::Test {
 protected:
  pid_t start(const std::string& source, const char* target = "-TF2") const {
    const pid_t child = fork();
    if (child != 0) return child;
    const char* const program = TOVAK_BINARY_FOLDER "/tovak";
    dup2(open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644), STDERR_FILENO);
    execl(program, program, source.c_str(), out.c_str(), "-B", "-SF2", "-SP1", "-SUE", target, "-TP5", "-TUE", "-A4",
          nullptr);
    _exit(127);
  }

  const tests::TemporaryFolder folder;
  const std::string out = folder.write("out.csv", "old");
  const std::string err = folder.file("err");
  const tests::EnvironmentVariable appData{"APPDATA", folder.file("AppData")};
  const tests::EnvironmentVariable component{"TOVAKX_COMPONENT", nullptr};
  int status = 0;
};

TEST_F(Executable, TakesNamesWithBlanksFromItsArguments) {
  waitpid(start(folder.write("a b.csv", "45.5,-93.5,A\n")), &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ(contentsOf(err), "1 record read: 1 converted, 0 skipped, 0 passed over\n");
}

TEST_F(Executable, SaysThatTheShellsLimitOfFilesIsReached) {
  std::string points;
  while (points.size() < 4000) points += "45.5,-93.5,A\n";
  const std::string source = folder.write("in.csv", points);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit limit = {.rlim_cur = 2000, .rlim_max = before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  waitpid(start(source), &status, 0);
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
  EXPECT_TRUE(contentsOf(err).starts_with("Batch Mode Error: " + out + ": File too large\n")) << contentsOf(err);
  EXPECT_TRUE(contentsOf(err).ends_with(" records read; " + out + " was left as it was.\n")) << contentsOf(err);
  EXPECT_EQ(contentsOf(out), "old");
}

TEST_F(Executable, SaysOnADisplayThatCannotBeUsedWhatTheWindowWouldHaveSaid) {
  const tests::EnvironmentVariable platform("QT_QPA_PLATFORM", "xcb");
  const tests::EnvironmentVariable display("DISPLAY", folder.file("none").c_str());
  waitpid(start(folder.write("in.csv", "45.5,-93.5,A\n"), "-TF99"), &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 2) << status;
  const std::string problem = "Command Line Error: Improper Target File Format Was Specified.\n";
  const std::string unopened = "Missing Component: The main window could not be opened;";
  EXPECT_NE(contentsOf(err).find(TOVAK_HAS_WINDOW ? problem + unopened : problem), std::string::npos)
      << contentsOf(err);
}

}  // namespace
}  // namespace tovak::app
