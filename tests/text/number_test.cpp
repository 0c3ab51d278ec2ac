#include "text/number.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace tovak::text {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(LeadingNumber, TakesTheLongestNumberAtTheHead) {
  const struct {
    std::string_view text;
    double value;
    std::size_t length;
  } cases[] = {
      {"", 0, 0},
      {"   ", 0, 0},
      {"abc", 0, 0},
      {"12", 12, 2},
      {"  12.5x", 12.5, 6},
      {"-3.25 m", -3.25, 5},
      {"+7", 7, 2},
      {".5", 0.5, 2},
      {"5.", 5, 2},
      {".", 0, 0},
      {"-", 0, 0},
      {"+-5", 0, 0},
      {"1e3", 1000, 3},
      {"1e", 1, 1},
      {"1E+2x", 100, 4},
      {"1e-2", 0.01, 4},
      {"1,5", 1, 1},
      {"1.5.2", 1.5, 3},
      {"nan", 0, 0},
      {"inf", 0, 0},
      {"-inf", 0, 0},
      {"0x10", 0, 1},
      {"\t5", 0, 0},
      {"45-12-34", 45, 2},
      {"1e400", kInfinity, 5},
      {"-1e400", -kInfinity, 6},
      {"1e-400", 0, 6},
      {"0.5e400", kInfinity, 7},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(parseLeadingNumber(c.text).value, c.value);
    EXPECT_EQ(parseLeadingNumber(c.text).length, c.length);
  }
}

TEST(LeadingNumber, ReadsTheNearestDouble) {
  EXPECT_EQ(leadingNumber("451234.123456789"), 451234.123456789);
  EXPECT_EQ(leadingNumber("-93.100000000000001"), -93.1);
  EXPECT_EQ(leadingNumber(std::string(400, '1')), kInfinity);
}

TEST(StrictNumber, IsANumberAndNothingElse) {
  EXPECT_EQ(strictNumber(" 12.5 "), 12.5);
  for (const char* text : {"", " ", "12.5x", "1 2", "1,000", "x"}) EXPECT_EQ(strictNumber(text), std::nullopt) << text;
}

TEST(ThousandsNumber, TakesGroupsOfThreeDigits) {
  const struct {
    std::string_view text;
    std::optional<double> value;
  } cases[] = {
      {"1,234,567.890", 1234567.89},
      {"  -12,345.6  ", -12345.6},
      {"+1,000", 1000},
      {"999,999.", 999999},
      {"1,234,567,890,123,456.5", 1234567890123456.5},
      {"001,234", 1234},
      {"1,234e2", 123400},
      {"1234.5", 1234.5},
      {".5", 0.5},
      {"", std::nullopt},
      {"  ", std::nullopt},
      {",", std::nullopt},
      {"-,123", std::nullopt},
      {",123", std::nullopt},
      {"1,", std::nullopt},
      {"1,23", std::nullopt},
      {"1,23,4.5", std::nullopt},
      {"1,2x", std::nullopt},
      {"1,234x", std::nullopt},
      {"1,2345", std::nullopt},
      {"1234,567", std::nullopt},
      {"1,234,", std::nullopt},
      {"1,,234", std::nullopt},
      {"1, 234", std::nullopt},
      {"1,234 5", std::nullopt},
      {"1,234.5,6", std::nullopt},
      {"1.5,200", std::nullopt},
      {"1,234.5.6", std::nullopt},
      // Decimal commas.
      {"0,125", std::nullopt},
      {"-0,125", std::nullopt},
      {"1.234,50", std::nullopt},
      {std::string_view("1,234\0", 6), std::nullopt},
  };
  std::string scratch = "left over";
  for (const auto& c : cases) EXPECT_EQ(thousandsNumber(c.text, scratch), c.value) << c.text;
}

TEST(ToInt16, RoundsHalvesToEvenAndKnowsItsRange) {
  EXPECT_EQ(toInt16(2.5), 2);
  EXPECT_EQ(toInt16(-3.5), -4);
  EXPECT_EQ(toInt16(32767.4), 32767);
  EXPECT_EQ(toInt16(32767.5), std::nullopt);
  EXPECT_EQ(toInt16(std::nan("")), std::nullopt);
}

TEST(FormatPrecision, RoundsAndPrints) {
  const struct {
    double value;
    int code;
    const char* text;
  } cases[] = {
      {1.5, 0, "1.500"},
      {0.0005, 0, "0.000"},
      {0.0015, 0, "0.002"},
      {0.0025, 0, "0.002"},
      {-0.0004, 0, "0.000"},
      {-0.0006, 0, "-0.001"},
      {-12.3456, 0, "-12.346"},
      {0.05, 1, "0.05"},
      {9.999, 1, "10.00"},
      {0.25, 2, "0.2"},
      {0.35, 2, "0.4"},
      {99.96, 2, "100.0"},
      {2.5, 3, "2"},
      {3.5, 3, "4"},
      {-0.4, 3, "0"},
      {150123.4, 4, "150120"},
      {15, 4, "20"},
      {25, 4, "20"},
      {150150.0, 5, "150200"},
      {150050.0, 5, "150000"},
      {0, 0, "0.000"},
      {1e-300, 0, "0.000"},
      {9007199254740.5, 0, "9007199254740.500"},
      {9007199254740993.0, 0, "9007199254740992.000"},
      {1e22, 3, "10000000000000000000000"},
      {-1e22, 1, "-10000000000000000000000.00"},
      {kInfinity, 0, ""},
      {-std::nan(""), 5, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.value << " with code " << c.code);
    EXPECT_EQ(formatPrecision(c.value, c.code), c.text);
  }
}

TEST(FormatPrecision, PrintsTheLargestDoubleWhole) {
  EXPECT_EQ(formatPrecision(std::numeric_limits<double>::max(), 0).size(), 309U + 4U);
}

TEST(MissingDecimals, CountsWhatThreeDecimalsLack) {
  const struct {
    std::string_view text;
    int missing;
  } cases[] = {{"123", 3},  {"123.4", 2},    {"123.45", 1}, {"123.456", 0}, {"123.4567", 0},
               {"123.", 3}, {" 12.5 ft", 2}, {"-.25", 1},   {"", 0},        {"   ", 0},
               {"n/a", 0},  {"12.", 3},      {"1.5e2", 2},  {"100 3.25", 3}};
  for (const auto& c : cases) EXPECT_EQ(missingDecimals(c.text), c.missing) << c.text;
}

}  // namespace
}  // namespace tovak::text
