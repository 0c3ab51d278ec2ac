#include <csignal>
#include <vector>

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

const std::string kProgram = TOVAK_BINARY_FOLDER "/tovak";

pid_t start(const std::vector<std::string>& arguments, const std::string& errName) {
  const pid_t child = fork();
  if (child != 0) return child;
  std::vector<char*> values = {const_cast<char*>(kProgram.c_str())};
  for (const std::string& argument : arguments) values.push_back(const_cast<char*>(argument.c_str()));
  values.push_back(nullptr);
  dup2(open(errName.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644), STDERR_FILENO);
  execv(kProgram.c_str(), values.data());
  _exit(127);
}

int waitFor(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

class Executable : public testing::Test {
 protected:
  std::vector<std::string> lineFor(const std::string& source) const {
    return {source, folder.file("out.csv"), "-B", "-SF2", "-SP1", "-SUE", "-TF2", "-TP5", "-TUE", "-A4"};
  }

  const tests::TemporaryFolder folder;
  const tests::EnvironmentVariable appData{"APPDATA", folder.file("AppData")};
  const tests::EnvironmentVariable component{"TOVAKX_COMPONENT", nullptr};
};

TEST_F(Executable, TakesNamesWithBlanksFromItsArguments) {
  const int status = waitFor(start(lineFor(folder.write("a b.csv", "45.5,-93.5,A\n")), folder.file("err")));
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0) << contentsOf(folder.file("err"));
  EXPECT_EQ(contentsOf(folder.file("err")), "1 record read: 1 converted, 0 skipped, 0 passed over\n");
}

TEST_F(Executable, LeavesTheOldTargetWhenItIsKilledMidway) {
  folder.write("out.csv", "old");
  const std::string pipe = folder.file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const struct {
    int signal;
    bool clearsUp;
  } cases[] = {{SIGTERM, true}, {SIGKILL, false}};
  for (const auto& c : cases) {
    const pid_t child = start(lineFor(pipe), folder.file("err"));
    const int points = open(pipe.c_str(), O_WRONLY);
    std::string block;
    while (block.size() < 100000) block += "45.5,-93.5,A,1,812.345,,,\n";
    // A pipe holds far less: once all of this is written, most of it has been converted.
    for (int i = 0; i < 10; ++i) {
      ASSERT_EQ(write(points, block.data(), block.size()), static_cast<ssize_t>(block.size()));
    }
    kill(child, c.signal);
    const int status = waitFor(child);
    close(points);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(contentsOf(folder.file("out.csv")), "old");
    EXPECT_EQ(folder.names().size() == 4, c.clearsUp) << "AppData, err, out.csv and the pipe, and nothing unfinished";
  }
}

}  // namespace
}  // namespace tovak::app
