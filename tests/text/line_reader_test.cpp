#include "text/line_reader.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace tovak::text {
namespace {

#define BOM "\xEF\xBB\xBF"

using Lines = std::vector<std::string>;

Lines linesOf(LineReader& reader) {
  Lines lines;
  for (std::string_view line; reader.next(line);) lines.emplace_back(line);
  return lines;
}

class LineReaderTest : public testing::Test {
 protected:
  const tests::TemporaryFolder folder;
  LineReader reader;
};

TEST_F(LineReaderTest, TakesAnyLineEndsAndBytesAndBeginsAgain) {
  using namespace std::string_literals;
  const std::tuple<std::string, Lines> cases[] = {{"", {}},
                                                  {"\n", {""}},
                                                  {"a\r\n\r\nb\r\n", {"a", "", "b"}},
                                                  {"a\rb\rc\nd\r\ne\r", {"a", "b", "c", "d", "e"}},
                                                  {"a\r\r\n\rb", {"a", "", "", "b"}},
                                                  {"a\r\n\x1A", {"a"}},
                                                  {"\x1A"
                                                   "a\rb\x1A\x1A",
                                                   {"\x1A"
                                                    "a",
                                                    "b"}},
                                                  {"\x1A\n", {"\x1A"}},
                                                  {BOM "1,2\n" BOM "3\n", {"1,2", BOM "3"}},
                                                  {"\xEF\xBB", {"\xEF\xBB"}},
                                                  {"a\0b\n\0\xFF"s, {"a\0b"s, "\0\xFF"s}}};
  for (const auto& [bytes, lines] : cases) {
    SCOPED_TRACE(testing::PrintToString(bytes));
    ASSERT_TRUE(reader.open(folder.write("points", bytes)));
    EXPECT_EQ(linesOf(reader), lines);
    ASSERT_TRUE(reader.rewind());
    EXPECT_EQ(linesOf(reader), lines);
    EXPECT_EQ(reader.lineNumber(), lines.size());
    EXPECT_EQ(reader.fault(), LineReader::Fault::None);
  }
}

TEST_F(LineReaderTest, JoinsLinesThatCrossItsBlocks) {
  for (const char* end : {"\n", "\r\n", "\r"}) {
    std::string bytes;
    Lines expected;
    // A block is 65536 bytes: a CR LF lies before, across and behind its end.
    for (const std::size_t length : {65535U, 65534U, 65533U, 1U, 65536U, 0U, 200000U, 65535U, 3U}) {
      expected.emplace_back(length, static_cast<char>('a' + expected.size()));
      bytes += expected.back() + end;
    }
    LineReader fresh;  // a long line makes the blocks larger
    ASSERT_TRUE(fresh.open(folder.write("points", bytes)));
    EXPECT_EQ(linesOf(fresh), expected) << testing::PrintToString(std::string(end));
  }
}

TEST_F(LineReaderTest, RefusesALineBeyondOneMebibyte) {
  const std::string longest(LineReader::kMaxLineLength, 'x');
  for (const char* end : {"", "\n", "\r\n", "\r"}) {
    ASSERT_TRUE(reader.open(folder.write("fits", longest + end)));
    EXPECT_EQ(linesOf(reader).size(), 1U);
    EXPECT_EQ(reader.error(), "");
    ASSERT_TRUE(reader.open(folder.write("long", "first\n" + longest + "y" + end)));
    EXPECT_EQ(linesOf(reader).size(), 1U);
    EXPECT_EQ(reader.fault(), LineReader::Fault::LineTooLong);
    EXPECT_EQ(reader.error(), folder.file("long") + ": line 2 is longer than 1 MiB");
  }
}

TEST_F(LineReaderTest, CarriesTheSystemsText) {
  EXPECT_FALSE(reader.open(folder.file("missing")));
  EXPECT_EQ(reader.error(), folder.file("missing") + ": No such file or directory");
  ASSERT_TRUE(reader.open(folder.path().string()));
  EXPECT_EQ(linesOf(reader), Lines{});
  EXPECT_EQ(reader.fault(), LineReader::Fault::System);
  EXPECT_EQ(reader.error(), folder.path().string() + ": Is a directory");
}

}  // namespace
}  // namespace tovak::text
