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
                                                  {"a\rb\n", {"a\rb"}},
                                                  {"a\r\r\nb", {"a\r", "b"}},
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
  std::string bytes;
  Lines expected;
  for (const std::size_t length : {65533U, 1U, 65536U, 0U, 200000U, 65535U, 3U}) {
    expected.emplace_back(length, static_cast<char>('a' + expected.size()));
    bytes += expected.back() + "\r\n";
  }
  ASSERT_TRUE(reader.open(folder.write("points", bytes)));
  EXPECT_EQ(linesOf(reader), expected);
}

TEST_F(LineReaderTest, RefusesALineBeyondOneMebibyte) {
  const std::string longest(LineReader::kMaxLineLength, 'x');
  for (const char* end : {"", "\n", "\r\n"}) {
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
