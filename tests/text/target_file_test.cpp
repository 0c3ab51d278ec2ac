#include "text/target_file.h"

#include <csignal>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/temporary_folder.h"
#include "text/file_identity.h"
#include "text/line_writer.h"

namespace tovak::text {
namespace {

namespace fs = std::filesystem;
using tests::contentsOf;
using Names = std::vector<std::string>;

using Naming = TargetFile::Naming;

class TargetFileTest : public testing::Test {
 protected:
  /// Whether the folder's file system has files without a name.
  bool hasUnnamedFiles() const {
    const int file = ::open(folder.path().c_str(), O_TMPFILE | O_RDWR, 0600);
    if (file >= 0) ::close(file);
    return file >= 0;
  }

  const tests::TemporaryFolder folder;
  const std::string name = folder.write("out", "old");
};

TEST_F(TargetFileTest, AppearsWhenItIsCommittedAndNotBefore) {
  for (const Naming naming : {Naming::Late, Naming::Early}) {
    folder.write("out", "old");
    const std::size_t unfinished = naming == Naming::Late && hasUnnamedFiles() ? 1 : 2;
    {
      TargetFile dropped(naming);
      ASSERT_TRUE(dropped.open(name) && dropped.write("new"));
      EXPECT_EQ(folder.names().size(), unfinished);
    }
    EXPECT_EQ(contentsOf(name), "old");
    EXPECT_EQ(folder.names(), Names{"out"});
    TargetFile file(naming);
    for (const bool older : {true, false}) {
      if (!older) fs::remove(name);
      ASSERT_TRUE(file.open(name) && file.write("new"));
      EXPECT_EQ(file.hasOlder(), older);
      EXPECT_EQ(contentsOf(name), older ? "old" : "(no file)");
      ASSERT_TRUE(file.commit());
      EXPECT_EQ(contentsOf(name), "new");
      EXPECT_EQ(folder.names(), Names{"out"});
    }
  }
}

TEST_F(TargetFileTest, WritesOpenDescriptorsAtTheirPlace) {
  const int shell = ::open(name.c_str(), O_WRONLY | O_APPEND);
  const std::string number = std::to_string(shell);
  fs::create_symlink("/dev/fd/" + number, folder.path() / "link");
  TargetFile file;
  for (const std::string& alias : {"/dev/fd/" + number, "/proc/self/fd/" + number, folder.file("link")}) {
    ASSERT_TRUE(file.open(alias) && file.write("+new") && file.commit()) << file.error();
    EXPECT_TRUE(file.isDirect());
  }
  EXPECT_EQ(contentsOf(name), "old+new+new+new");
  ::close(shell);
  EXPECT_FALSE(file.open("/dev/fd/" + number));
  EXPECT_EQ(file.error(), "/dev/fd/" + number + ": Bad file descriptor");
  EXPECT_EQ(namedDescriptor("/dev/stdout"), 1);
}

TEST_F(TargetFileTest, KeepsPermissionsAndFollowsLinks) {
  fs::create_directory(folder.path() / "real");
  fs::permissions(folder.write("real/older", "old"), fs::perms(0640));
  for (const char* target : {"real/older", "real/later"}) {
    const std::string link = folder.file("link");
    fs::remove(link);
    fs::create_symlink(target, link);
    TargetFile file;
    ASSERT_TRUE(file.open(link) && file.write("new") && file.commit());
    EXPECT_EQ(contentsOf(folder.file(target)), "new");
    EXPECT_TRUE(fs::is_symlink(link));
  }
  EXPECT_EQ(fs::status(folder.file("real/older")).permissions(), fs::perms(0640));
}

TEST_F(TargetFileTest, CarriesTheSystemsTextUnderTheGivenName) {
  fs::create_symlink("loop", folder.path() / "loop");
  const std::tuple<std::string, const char*> cases[] = {{folder.file("missing/out"), "No such file or directory"},
                                                        {folder.path().string(), "Is a directory"},
                                                        {"", "No such file or directory"},
                                                        {folder.file(std::string(256, 'n')), "File name too long"},
                                                        {folder.file("out/below"), "Not a directory"},
                                                        {folder.file("loop"), "Too many levels of symbolic links"},
                                                        {"/dev/full", "No space left on device"},
                                                        {"/dev/null", nullptr}};
  for (const auto& [given, text] : cases) {
    TargetFile file;
    EXPECT_EQ(file.open(given) && file.write("new") && file.commit(), text == nullptr) << given;
    EXPECT_EQ(file.error(), text == nullptr ? "" : given + ": " + text);
  }
  EXPECT_EQ(folder.names(), (Names{"loop", "out"}));
}

TEST_F(TargetFileTest, LeavesTheOldFileWhenTheDiskIsFullAtAnyByte) {
  // The size limit of files stands in for a full disk: writing fails at one given byte.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const std::string line(999, 'x');
  for (const rlim_t bytes : {0U, 1U, 65536U, 65537U, 199999U}) {
    SCOPED_TRACE(bytes);
    LineWriter writer;
    const rlimit limit = {.rlim_cur = bytes, .rlim_max = before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    bool done = writer.open(name);
    for (int i = 0; i < 200; ++i) done = writer.writeLine(line) && done;
    done = writer.commit() && done;
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_FALSE(done);
    EXPECT_EQ(writer.error(), name + ": File too large");
    EXPECT_EQ(contentsOf(name), "old");
    EXPECT_EQ(folder.names(), Names{"out"});
  }
}

TEST_F(TargetFileTest, GrowsByWhatIsWrittenWhenItIsCommitted) {
  const auto append = TargetFile::Way::Append;
  TargetFile file;
  ASSERT_TRUE(file.open(name, append) && file.write("new") && file.finish());
  EXPECT_EQ(contentsOf(name), "old");
  folder.write("out", "old and another's ");
  ASSERT_TRUE(file.commit());
  EXPECT_EQ(contentsOf(name), "old and another's new");
  EXPECT_EQ(file.start(), 18U);

  // Two that were begun when there was no file: the second sees what the first has written.
  const auto joint = [](const std::string& older) { return std::string(contentsOf(older) == "first" ? "\f" : "?"); };
  for (const Naming naming : {Naming::Late, Naming::Early}) {
    const std::string later = folder.file("later");
    fs::remove(later);
    TargetFile first(naming), second(naming);
    ASSERT_TRUE(first.open(later, append, joint) && second.open(later, append, joint));
    ASSERT_TRUE(second.write("second") && first.write("first") && first.commit() && second.commit());
    EXPECT_EQ(contentsOf(later), "first\fsecond");
    EXPECT_TRUE(first.start() == 0 && second.start() == 6);
  }
  // The disk is full behind the older file, while the new part alone has room.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const std::string older(150000, 'o');
  folder.write("out", older);
  ASSERT_TRUE(file.open(name, append) && file.write(std::string(100000, 'n')));
  const rlimit limit = {.rlim_cur = 249999, .rlim_max = before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  const bool done = file.commit();
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_FALSE(done);
  EXPECT_EQ(file.error(), name + ": File too large");
  EXPECT_EQ(contentsOf(name), older);
  EXPECT_EQ(folder.names(), (Names{"later", "out"}));
}

TEST_F(TargetFileTest, LeavesNothingWhenTheProgramIsKilled) {
  for (const int signalNumber : {SIGKILL, SIGINT, SIGTERM, SIGHUP}) {
    // Nothing takes away a file with a name when the program is killed outright.
    const Naming naming = signalNumber == SIGKILL ? Naming::Late : Naming::Early;
    if (signalNumber == SIGKILL && !hasUnnamedFiles()) continue;
    const pid_t child = fork();
    if (child == 0) {
      removeUnfinishedFileOnSignals();
      TargetFile file(naming), report(naming);
      const bool open = file.open(name) && report.open(name, TargetFile::Way::Append);
      if (open && file.write("new") && report.write("new")) std::raise(signalNumber);
      _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signalNumber);
    EXPECT_EQ(contentsOf(name), "old");
    EXPECT_EQ(folder.names(), Names{"out"});
  }
  TargetFile next;
  EXPECT_TRUE(next.open(name) && next.write("new") && next.commit());
}

}  // namespace
}  // namespace tovak::text
