#include "text/fixed_columns.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace tovak::text {
namespace {

TEST(Columns, EndWithTheLine) {
  EXPECT_EQ(columns("abc de", 1, 3), "abc");
  EXPECT_EQ(columns("abc de", 5, 9), "de");
  EXPECT_EQ(columns("abc de", 20, 30), "");
  EXPECT_TRUE(isBlank("abc de", 4, 4) && isBlank("abc de", 7, 9) && !isBlank("abc de", 4, 5));
  EXPECT_TRUE(columnAt("abc", 3) == 'c' && columnAt("abc", 4) == ' ');
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
  EXPECT_TRUE(line.end() && line.end());
  line.putText("\xC3\xB6\n\xE2\x82\xAC\xB0\xF0\x9F\x93\x8D");
  line.advanceTo(7);
  line.put("seven");
  EXPECT_TRUE(line.end());
  for (const char* number : {"12.5", "12345.5", "12"}) line.putPointAt(5, number);
  for (const char* text : {"abc", "abcdef"}) line.putRightAligned(5, text);
  EXPECT_TRUE(line.end() && lines.commit());
  EXPECT_EQ(
      tests::contentsOf(folder.file("out")),
      "1234five\n       eight\n\n\xC3\xB6 \xE2\x82\xAC\xB0\xF0\x9F\x93\x8D seven\n  12.512345.5  12  abcabcdef\n");
}

TEST(FixedColumns, MaskAndAlignTheirTexts) {
  std::string masked;
  const std::tuple<double, int> values[] = {{812.3, 3}, {-0.5, 1}, {0, 2}, {812.5, 0}, {0.4, 0}, {10, 1}};
  for (const auto& [value, decimals] : values) appendMasked(masked += "|", value, decimals);
  EXPECT_EQ(masked, "|812.300|-.5|.00|812.|.|10.0");

  std::string four;
  for (const char* number : {"7", "12345", "A1", ""}) appendFourDigits(four += "|", number);
  EXPECT_EQ(four, "|0007|2345|00A1|000");
}

}  // namespace
}  // namespace tovak::text
