#include "text/number.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace tovak::text {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(LeadingNumber, IsTheLongestAtTheHead) {
  using Row = std::tuple<std::string_view, double, std::size_t>;
  const Row cases[] = {// Its own length counts, blanks in front included.
                       Row("", 0, 0),
                       Row("   ", 0, 0),
                       Row("  12.5x", 12.5, 6),
                       Row("-3.25 m", -3.25, 5),
                       Row("+7", 7, 2),
                       Row(".5", 0.5, 2),
                       Row("5.", 5, 2),
                       Row(".", 0, 0),
                       Row("-", 0, 0),
                       Row("+-5", 0, 0),
                       Row("1e", 1, 1),
                       Row("1E+2x", 100, 4),
                       Row("1e-2", 0.01, 4),
                       Row("1,5", 1, 1),
                       Row("1.5.2", 1.5, 3),
                       Row("nan", 0, 0),
                       Row("-inf", 0, 0),
                       Row("0x10", 0, 1),
                       Row("\t5", 0, 0),
                       Row("45-12", 45, 2),
                       Row("-1e400", -kInfinity, 6),
                       Row("1e-400", 0, 6),
                       Row("-93.100000000000001", -93.1, 19)};
  for (const auto& [text, value, length] : cases) {
    EXPECT_EQ(parseLeadingNumber(text).value, value) << text;
    EXPECT_EQ(parseLeadingNumber(text).length, length) << text;
  }
}

TEST(LeadingNumber, IsTheNearestDouble) {
  const std::string zeros(400, '0');
  const std::pair<std::string, double> cases[] = {
      // Exact in one step, next to the largest whole number that is, and beyond.
      {"47.009838922", 47.009838922},
      {"-0.001", -0.001},
      {"1e22", 1e22},
      {"1e23", 1e23},
      {"9007199254740993", 0x1p53},
      {"9007199254740993.000000000000000000001", 0x1.0000000000001p53},
      {"0.000000000000000000000001", 1e-24},
      {"618227.913935318852", 618227.9139353188},
      {"4.9e-324", 0x1p-1074},
      {"1.7976931348623157e308", 0x1.fffffffffffffp1023},
      // Leading zeros and exponents that belong together.
      {zeros + "7.25", 7.25},
      {"." + zeros + "5e401", 5.0},
      {"5" + zeros + "e-400", 5.0},
      // Too large and too small for a double, whatever the first digits and the exponent look like.
      {"0" + std::string(310, '9'), kInfinity},
      {"-" + std::string(400, '1'), -kInfinity},
      {"1e999", kInfinity},
      {"1" + zeros + "e-10", kInfinity},
      {"." + zeros + "1e10", 0.0},
      {"0e999", 0.0},
      {"1e-99999999999999999999", 0.0}};
  for (const auto& [text, value] : cases) {
    EXPECT_EQ(parseLeadingNumber(text).value, value) << text;
    EXPECT_EQ(parseLeadingNumber(text).length, text.size()) << text;
  }
}

TEST(ThousandsNumber, TakesGroupsOfThreeDigits) {
  constexpr auto kNone = std::nullopt;
  using Row = std::tuple<std::string_view, std::optional<double>>;
  const Row cases[] = {Row("1,234,567.890", 1234567.89), Row("  -12,345.6  ", -12345.6), Row("999,999.", 999999),
                       Row("001,234", 1234), Row(" 1234.5 ", 1234.5), Row("12.5x", kNone), Row("1 2", kNone),
                       Row("", kNone), Row(",", kNone), Row("-,123", kNone), Row("1,", kNone), Row("1,23,4.5", kNone),
                       Row("1,234x", kNone), Row("1,2345", kNone), Row("1234,567", kNone), Row("1,,234", kNone),
                       Row("1, 234", kNone), Row("1,234.5,6", kNone), Row("1.5,200", kNone),
                       // Decimal commas.
                       Row("-0,125", kNone), Row("1.234,50", kNone), Row(std::string_view("1,234\0", 6), kNone)};
  std::string scratch = "left over";
  for (const auto& [text, value] : cases) EXPECT_EQ(thousandsNumber(text, scratch), value) << text;
}

TEST(ToInt16, RoundsHalvesToEvenAndKnowsItsRange) {
  EXPECT_TRUE(toInt16(2.5) == 2 && toInt16(-3.5) == -4 && toInt16(32767.4) == 32767);
  EXPECT_FALSE(toInt16(32767.5) || toInt16(std::nan("")));
}

TEST(FormatPrecision, RoundsAndPrints) {
  using Row = std::tuple<double, int, const char*>;
  const Row cases[] = {Row(1.5, 0, "1.500"),
                       // Halves go to the even neighbour.
                       Row(0.0015, 0, "0.002"), Row(0.0025, 0, "0.002"), Row(-0.0004, 0, "0.000"),
                       Row(-12.3456, 0, "-12.346"), Row(9.999, 1, "10.00"), Row(0.25, 2, "0.2"), Row(99.96, 2, "100.0"),
                       Row(3.5, 3, "4"), Row(-0.4, 3, "0"), Row(15, 4, "20"), Row(25, 4, "20"),
                       Row(150050.0, 5, "150000"), Row(9007199254740.5, 0, "9007199254740.500"),
                       Row(9007199254740993.0, 0, "9007199254740992.000"), Row(-1e22, 1, "-10000000000000000000000.00"),
                       Row(kInfinity, 0, ""), Row(-std::nan(""), 5, "")};
  for (const auto& [value, code, text] : cases) {
    std::string out;
    formatPrecision(out, value, static_cast<Accuracy>(code));
    EXPECT_EQ(out, text) << value << " code " << code;
  }
}

TEST(WrittenAccuracy, CountsWhatThreeDecimalsLack) {
  const std::tuple<std::string_view, int> cases[] = {{"123", 3},      {"123.4567", 0}, {"123.456", 0}, {"123.", 3},
                                                     {" 12.5 ft", 2}, {"-.25", 1},     {"   ", 0},     {"n/a", 0},
                                                     {"1.5e2", 2},    {"100 3.25", 3}};
  for (const auto& [text, missing] : cases) {
    EXPECT_EQ(static_cast<int>(writtenAccuracy(parseLeadingNumber(text))), missing) << text;
  }
}

}  // namespace
}  // namespace tovak::text
