#include <csignal>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
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

TEST_F(Executable, SaysOnADisplayThatCannotBeUsedWhatTheWindowWouldHaveSaid) {
  const tests::EnvironmentVariable platform("QT_QPA_PLATFORM", "xcb");
  const tests::EnvironmentVariable display("DISPLAY", folder.file("none").c_str());
  waitpid(start(folder.write("in.csv", "45.5,-93.5,A\n"), "-TF99"), &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 2) << status;
  EXPECT_NE(contentsOf(err).find("Command Line Error: Improper Target File Format Was Specified.\n"
                                 "Missing Component: The main window could not be opened;"),
            std::string::npos)
      << contentsOf(err);
}

TEST_F(Executable, LeavesTheOldTargetWhenItIsKilledMidway) {
  const std::string pipe = folder.file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  // A pipe holds far less: once all of this is written, most of it has been converted.
  std::string points;
  while (points.size() < 1000000) points += "45.5,-93.5,A,1,812.345,,,\n";
  for (const int signalNumber : {SIGTERM, SIGKILL}) {
    const pid_t child = start(pipe);
    const int source = open(pipe.c_str(), O_WRONLY);
    EXPECT_EQ(write(source, points.data(), points.size()), static_cast<ssize_t>(points.size()));
    kill(child, signalNumber);
    waitpid(child, &status, 0);
    close(source);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(contentsOf(out), "old");
    EXPECT_EQ(folder.names().size(), signalNumber == SIGTERM ? 4U : 5U) << "AppData, err, out.csv, pipe, unfinished";
  }
}

}  // namespace
}  // namespace tovak::app
