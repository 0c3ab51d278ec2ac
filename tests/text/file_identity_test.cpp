#include "text/file_identity.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace tovak::text {
namespace {

namespace fs = std::filesystem;

TEST(SameFile, SeesThroughNamesAndLinks) {
  const tests::TemporaryFolder folder;
  for (const char* name : {"a", "b"}) folder.write(name, "");
  fs::create_hard_link(folder.path() / "a", folder.path() / "hard");
  fs::create_directory_symlink(".", folder.path() / "here");
  fs::create_symlink("new", folder.path() / "dangling");
  using Pair = std::tuple<const char*, const char*, bool>;
  const Pair cases[] = {Pair("a", "b", false),         Pair("hard", "a", true),
                        Pair("a", "here/a", true),     Pair("new", "here/new", true),
                        Pair("new", "other", false),   Pair("a", "new", false),
                        Pair("new", "dangling", true), Pair("A", "a", fs::exists(folder.path() / "A"))};
  for (const auto& [a, b, same] : cases) {
    EXPECT_EQ(sameFile(folder.file(a), folder.file(b)), same) << a << " and " << b;
    EXPECT_EQ(sameFile(folder.file(b), folder.file(a)), same) << b << " and " << a;
  }
  EXPECT_FALSE(sameFile("", "") || sameFile("/dev/null", "/dev/null"));
}

}  // namespace
}  // namespace tovak::text
