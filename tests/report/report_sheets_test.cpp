#include "report/report_sheets.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace tovak::report {
namespace {

TEST(ReportSheets, BeginAtTheNewestReportAndReachEverySheet) {
  const tests::TemporaryFolder folder;
  const std::string end = "1 meter = 3.280833333\n";
  std::string tall;
  for (int i = 0; i < 100; ++i) tall += "l\n";
  for (const auto& [bytes, newest] : {std::pair{std::string("a\n"), 1},
                                      {"a\n" + end, 1},
                                      {"a\n" + end + "\f\n", 1},
                                      {"a\n" + end + "\fb\n" + end, 2},
                                      {"a\f" + end + "\fb\fc\n" + end, 3},
                                      {"a\n" + end + "\fb\n", 2},
                                      {tall + end + "\fb\n" + end, 3}}) {
    ReportSheets sheets(folder.write("file", bytes));
    ASSERT_TRUE(sheets.open());
    EXPECT_EQ(sheets.newestReport(), newest) << bytes;
    Sheet first, last, again;
    EXPECT_TRUE(sheets.take(1, first) && sheets.take(sheets.size().sheets, last) && sheets.take(1, again));
    EXPECT_EQ(first, again);
    EXPECT_FALSE(sheets.take(sheets.size().sheets + 1, again));
  }
}

TEST(ReportSheets, CutAnyFileAtItsFormFeeds) {
  const tests::TemporaryFolder folder;
  const std::string wide(101, 'w'), odd = "\xC3\x84\xE4";
  const std::string words = std::string(54, 'w') + ' ' + std::string(46, 'w');
  std::string tall;
  for (int i = 0; i < 96; ++i) tall += "l\n";
  const auto lines = [](int count, const std::string& end) {
    std::string all;
    for (int i = 0; i < count; ++i) all += "l|";
    return all + end;
  };
  const struct {
    std::string bytes;
    std::string sheets;  ///< lines ended by "|", sheets by "#"
    SheetSize size;
  } cases[] = {
      {"", "", {0, 0, 0}},
      {"\f\f\n\f", "", {0, 0, 0}},
      {"a\r\n\nbcd\n\f\ne", "a||bcd|#e|#", {3, 3, 2}},
      {"\fa\f\fb\fc\n", "a|#b|#c|#", {1, 1, 3}},
      {std::string("x\0\t\x7F", 4) + odd, "x   " + odd + "|#", {6, 1, 1}},
      {wide + "\n", wide.substr(1) + "|w|#", {100, 2, 1}},
      {words + " end\n", words.substr(0, 55) + "|" + words.substr(55) + " end|#", {55, 2, 1}},
      {tall + "\fl\n", lines(96, "#l|#"), {1, 96, 2}},
      {tall + "l\n\fl\n", lines(68, "#") + lines(29, "#l|#"), {1, 68, 3}},
  };
  for (const auto& c : cases) {
    ReportSheets sheets(folder.write("file", c.bytes));
    ASSERT_TRUE(sheets.open());
    std::string all;
    for (Sheet sheet; sheets.next(sheet); all += '#') {
      for (const std::string& line : sheet) all += line + '|';
    }
    EXPECT_EQ(all, c.sheets);
    const SheetSize& size = sheets.size();
    EXPECT_EQ(std::tie(size.columns, size.lines, size.sheets), std::tie(c.size.columns, c.size.lines, c.size.sheets));
  }
  ReportSheets endless(folder.write("long", "a\n" + std::string(2 << 20, 'x')));
  EXPECT_FALSE(endless.open());
  EXPECT_EQ(endless.error(), folder.file("long") + ": line 2 is longer than 1 MiB");
}

}  // namespace
}  // namespace tovak::report
