#include "text/file_identity.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace tovak::text {
namespace {

namespace fs = std::filesystem;

TEST(SameFile, SeesThroughNamesAndLinks) {
  const tests::TemporaryFolder folder;
  folder.write("a", "");
  folder.write("b", "");
  fs::create_directory(folder.path() / "sub");
  fs::create_symlink("a", folder.path() / "soft");
  fs::create_hard_link(folder.path() / "a", folder.path() / "hard");
  fs::create_directory_symlink(".", folder.path() / "here");
  fs::create_symlink("new", folder.path() / "dangling");
  const struct {
    const char* a;
    const char* b;
    bool same;
  } cases[] = {
      {"a", "a", true},          {"a", "b", false},
      {"a", "./a", true},        {"a", "sub/../a", true},
      {"a", "soft", true},       {"hard", "a", true},
      {"a", "here/a", true},     {"new", "new", true},
      {"new", "./new", true},    {"new", "here/new", true},
      {"new", "other", false},   {"a", "new", false},
      {"new", "dangling", true}, {"A", "a", fs::exists(folder.path() / "A")},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(sameFile(folder.file(c.a), folder.file(c.b)), c.same) << c.a << " and " << c.b;
    EXPECT_EQ(sameFile(folder.file(c.b), folder.file(c.a)), c.same) << c.b << " and " << c.a;
  }
  EXPECT_FALSE(sameFile("", ""));
  EXPECT_FALSE(sameFile("/dev/null", "/dev/null"));
}

}  // namespace
}  // namespace tovak::text
