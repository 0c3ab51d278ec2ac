#include "text/target_file.h"

#include <csignal>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/temporary_folder.h"
#include "text/line_writer.h"

namespace tovak::text {
namespace {

namespace fs = std::filesystem;
using tests::contentsOf;
using tests::TemporaryFolder;
using Names = std::vector<std::string>;

TEST(TargetFile, AppearsWhenItIsCommitted) {
  const TemporaryFolder folder;
  const std::string name = folder.write("out", "old");
  TargetFile file;
  ASSERT_TRUE(file.open(name) && file.write("new"));
  EXPECT_EQ(contentsOf(name), "old");
  ASSERT_TRUE(file.commit());
  EXPECT_EQ(contentsOf(name), "new");
  EXPECT_EQ(folder.names(), Names{"out"});
}

TEST(TargetFile, LeavesNothingWhenItIsDropped) {
  const TemporaryFolder folder;
  const std::string name = folder.write("out", "old");
  {
    TargetFile file;
    ASSERT_TRUE(file.open(name) && file.write("new"));
  }
  EXPECT_EQ(contentsOf(name), "old");
  EXPECT_EQ(folder.names(), Names{"out"});
}

TEST(TargetFile, KeepsPermissionsAndFollowsLinks) {
  const TemporaryFolder folder;
  fs::create_directory(folder.path() / "real");
  const std::string real = folder.write("real/out", "old");
  fs::permissions(real, fs::perms(0640));
  fs::create_symlink("real/out", folder.path() / "link");
  TargetFile file;
  ASSERT_TRUE(file.open(folder.file("link")) && file.write("new") && file.commit());
  EXPECT_EQ(contentsOf(real), "new");
  EXPECT_EQ(fs::status(real).permissions(), fs::perms(0640));
  EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));

  fs::create_symlink("real/later", folder.path() / "dangling");
  ASSERT_TRUE(file.open(folder.file("dangling")) && file.write("made") && file.commit());
  EXPECT_EQ(contentsOf(folder.file("real/later")), "made");
}

TEST(TargetFile, CarriesTheSystemsTextUnderTheGivenName) {
  const TemporaryFolder folder;
  fs::create_symlink("loop", folder.path() / "loop");
  const struct {
    std::string name;
    const char* text;
  } cases[] = {
      {folder.file("missing/out"), "No such file or directory"},
      {folder.path().string(), "Is a directory"},
      {folder.file("loop"), "Too many levels of symbolic links"},
      {folder.file(std::string(300, 'x')), "File name too long"},
  };
  for (const auto& c : cases) {
    TargetFile file;
    const bool done = file.open(c.name) && file.write("new") && file.commit();
    EXPECT_FALSE(done);
    EXPECT_EQ(file.error(), c.name + ": " + c.text);
  }
  EXPECT_EQ(folder.names(), Names{"loop"});
}

TEST(TargetFile, WritesDevicesDirectly) {
  LineWriter full;
  ASSERT_TRUE(full.open("/dev/full"));
  EXPECT_TRUE(full.writeLine("a line"));
  EXPECT_FALSE(full.commit());
  EXPECT_EQ(full.error(), "/dev/full: No space left on device");

  LineWriter null;
  EXPECT_TRUE(null.open("/dev/null") && null.writeLine("a line") && null.commit());
}

/// The size limit of files stands in for a full disk: writing fails at one given byte.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit = {.rlim_cur = bytes, .rlim_max = before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

 private:
  rlimit before_{};
};

TEST(TargetFile, LeavesTheOldFileWhenTheDiskIsFullAtAnyByte) {
  const TemporaryFolder folder;
  const std::string name = folder.write("out", "old");
  const std::string line(999, 'x');
  for (const rlim_t limit : {0U, 1U, 999U, 65535U, 65536U, 65537U, 100000U, 199999U}) {
    SCOPED_TRACE(limit);
    LineWriter writer;
    bool done = true;
    {
      const FileSizeLimit full(limit);
      done = writer.open(name);
      for (int i = 0; i < 200; ++i) done = writer.writeLine(line) && done;
      done = writer.commit() && done;
    }
    EXPECT_FALSE(done);
    EXPECT_EQ(writer.error(), name + ": File too large");
    EXPECT_EQ(contentsOf(name), "old");
    EXPECT_EQ(folder.names(), Names{"out"});
  }
}

/// Begins a file in a child process that then ends by a signal; what the folder holds afterwards.
Names namesAfterSignal(const TemporaryFolder& folder, int signalNumber) {
  const std::string name = folder.file("out");
  const pid_t child = fork();
  if (child == 0) {
    removeUnfinishedFileOnSignals();
    TargetFile file;
    if (file.open(name) && file.write("new")) std::raise(signalNumber);
    _exit(1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), signalNumber);
  EXPECT_EQ(contentsOf(name), "old");
  return folder.names();
}

TEST(TargetFile, ClearsUpWhenTheProgramIsInterrupted) {
  const TemporaryFolder folder;
  folder.write("out", "old");
  for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP})
    EXPECT_EQ(namesAfterSignal(folder, signalNumber), Names{"out"});
  // A program killed outright can leave its unfinished file; it does not hinder the next one.
  EXPECT_EQ(namesAfterSignal(folder, SIGKILL).size(), 2U);
  TargetFile next;
  ASSERT_TRUE(next.open(folder.file("out")) && next.write("new") && next.commit());
  EXPECT_EQ(contentsOf(folder.file("out")), "new");
}

}  // namespace
}  // namespace tovak::text
