#include "text/line_reader.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace tovak::text {
namespace {

using tests::TemporaryFolder;

std::vector<std::string> linesOf(LineReader& reader) {
  std::vector<std::string> lines;
  for (std::string_view line; reader.next(line);) lines.emplace_back(line);
  return lines;
}

TEST(LineReader, TakesAnyLineEndsAndBytes) {
  using namespace std::string_literals;
  const struct {
    std::string bytes;
    std::vector<std::string> lines;
  } cases[] = {
      {"", {}},
      {"\n", {""}},
      {"a\nb\n", {"a", "b"}},
      {"a\r\nb", {"a", "b"}},
      {"a\r\n\r\nb\r\n", {"a", "", "b"}},
      {"a\rb\n", {"a\rb"}},
      {"a\r\r\n", {"a\r"}},
      {"\xEF\xBB\xBF"
       "1,2\n\xEF\xBB\xBF"
       "3\n",
       {"1,2",
        "\xEF\xBB\xBF"
        "3"}},
      {"\xEF\xBB", {"\xEF\xBB"}},
      {"a\0b\n\0"s, {"a\0b"s, "\0"s}},
      {"\xFF\xC3(\n", {"\xFF\xC3("}},
  };
  const TemporaryFolder folder;
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.bytes));
    LineReader reader;
    ASSERT_TRUE(reader.open(folder.write("points", c.bytes)));
    EXPECT_EQ(linesOf(reader), c.lines);
    EXPECT_EQ(reader.lineNumber(), c.lines.size());
    EXPECT_EQ(reader.fault(), LineReader::Fault::None);
  }
}

TEST(LineReader, JoinsLinesThatCrossItsBlocks) {
  std::string bytes;
  std::vector<std::string> expected;
  for (std::size_t length : {65533U, 1U, 65536U, 0U, 200000U, 65535U, 3U}) {
    expected.emplace_back(length, static_cast<char>('a' + expected.size()));
    bytes += expected.back() + "\r\n";
  }
  const TemporaryFolder folder;
  LineReader reader;
  ASSERT_TRUE(reader.open(folder.write("points", bytes)));
  EXPECT_EQ(linesOf(reader), expected);
}

TEST(LineReader, RefusesALineBeyondOneMebibyte) {
  const TemporaryFolder folder;
  const std::string longest(LineReader::kMaxLineLength, 'x');
  for (const char* end : {"", "\n", "\r\n"}) {
    SCOPED_TRACE(testing::PrintToString(end));
    LineReader reader;
    ASSERT_TRUE(reader.open(folder.write("fits", longest + end)));
    EXPECT_EQ(linesOf(reader).size(), 1U);
    EXPECT_EQ(reader.fault(), LineReader::Fault::None);

    const std::string name = folder.write("long", "first\n" + longest + "y" + end);
    ASSERT_TRUE(reader.open(name));
    EXPECT_EQ(linesOf(reader).size(), 1U);
    EXPECT_EQ(reader.fault(), LineReader::Fault::LineTooLong);
    EXPECT_EQ(reader.error(), name + ": line 2 is longer than 1 MiB");
  }
}

TEST(LineReader, BeginsAgain) {
  const TemporaryFolder folder;
  LineReader reader;
  ASSERT_TRUE(reader.open(folder.write("points",
                                       "\xEF\xBB\xBF"
                                       "a\nb")));
  const std::vector<std::string> first = linesOf(reader);
  ASSERT_TRUE(reader.rewind());
  EXPECT_EQ(linesOf(reader), first);
  EXPECT_EQ(reader.lineNumber(), 2U);
}

TEST(LineReader, CarriesTheSystemsText) {
  const TemporaryFolder folder;
  LineReader reader;
  EXPECT_FALSE(reader.open(folder.file("missing")));
  EXPECT_EQ(reader.error(), folder.file("missing") + ": No such file or directory");

  ASSERT_TRUE(reader.open(folder.path().string()));
  std::string_view line;
  EXPECT_FALSE(reader.next(line));
  EXPECT_EQ(reader.fault(), LineReader::Fault::System);
  EXPECT_EQ(reader.error(), folder.path().string() + ": Is a directory");
}

}  // namespace
}  // namespace tovak::text
