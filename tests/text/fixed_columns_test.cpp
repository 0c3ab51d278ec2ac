#include "text/fixed_columns.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace tovak::text {
namespace {

TEST(Columns, EndWithTheLine) {
  const struct {
    std::size_t first;
    std::size_t last;
    const char* text;
    bool blank;
  } cases[] = {{1, 3, "abc", false}, {3, 5, "c d", false}, {4, 4, " ", true}, {5, 9, "de", false},
               {6, 6, "e", false},   {7, 9, "", true},     {20, 30, "", true}};
  for (const auto& c : cases) {
    EXPECT_EQ(columns("abc de", c.first, c.last), c.text);
    EXPECT_EQ(isBlank("abc de", c.first, c.last), c.blank);
  }
  EXPECT_EQ(columnsFrom("abc", 3), "c");
  EXPECT_EQ(columnsFrom("abc", 9), "");
  EXPECT_EQ(columnAt("abc", 3), 'c');
  EXPECT_EQ(columnAt("abc", 4), ' ');
}

TEST(ColumnLine, StartsANewLineWhereTheOldOneIsPastTheColumn) {
  const tests::TemporaryFolder folder;
  LineWriter lines;
  ASSERT_TRUE(lines.open(folder.file("out")));
  ColumnLine line(lines);
  line.put("1234");
  line.advanceTo(5);
  line.put("five");
  line.advanceTo(8);
  line.put("eight");
  line.advanceTo(15);
  EXPECT_TRUE(line.end());
  EXPECT_TRUE(line.end());
  ASSERT_TRUE(lines.commit());
  EXPECT_EQ(tests::contentsOf(folder.file("out")), "1234five\n       eight  \n\n");
}

TEST(Masks, PrintAPointAndNoLeadingZeros) {
  const struct {
    double value;
    int decimals;
    const char* text;
  } cases[] = {{812.3, 3, "812.300"}, {0.5, 3, ".500"}, {-0.5, 1, "-.5"},    {0, 2, ".00"},         {812.5, 0, "812."},
               {0.4, 0, "."},         {10, 1, "10.0"},  {0.0005, 3, ".000"}, {-12.345, 2, "-12.34"}};
  for (const auto& c : cases) {
    std::string text = "0";
    appendMasked(text, c.value, c.decimals);
    EXPECT_EQ(text, std::string("0") + c.text);
  }
}

TEST(Alignment, PadsInFront) {
  const auto pointAt = [](std::string_view text, std::size_t position) {
    std::string out;
    appendPointAt(out, text, position);
    return out;
  };
  EXPECT_EQ(pointAt("12.5", 5), "  12.5");
  EXPECT_EQ(pointAt("1234.5", 5), "1234.5");
  EXPECT_EQ(pointAt("12345.5", 5), "12345.5");
  EXPECT_EQ(pointAt("12", 5), "  12");

  std::string out;
  appendRightAligned(out, "abc", 5);
  appendRightAligned(out, "abcdef", 5);
  EXPECT_EQ(out, "  abcabcdef");
}

TEST(FourDigits, AreTheRightmost) {
  const struct {
    const char* number;
    const char* text;
  } cases[] = {{"7", "0007"}, {"12", "0012"}, {"12345", "2345"}, {"A1", "00A1"}, {"", "000"}, {"1234", "1234"}};
  for (const auto& c : cases) {
    std::string out;
    appendFourDigits(out, c.number);
    EXPECT_EQ(out, c.text);
  }
}

}  // namespace
}  // namespace tovak::text
