#include "text/angle.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace tovak::text {
namespace {

constexpr AngleForm S = AngleForm::DegreesMinutesSeconds;
constexpr AngleForm D = AngleForm::DecimalDegrees;
constexpr AngleForm M = AngleForm::DegreesDecimalMinutes;

double degrees(double d, double m, double s) {
  return d + m / 60 + s / 3600;
}

TEST(InterpretAngle, ReadsEachForm) {
  const struct {
    double value;
    AngleForm form;
    double expected;
  } cases[] = {
      {45.5, D, 45.5},
      {-93.25, D, -93.25},
      {4530.5, M, degrees(45, 30.5, 0)},
      {-9315.25, M, -degrees(93, 15.25, 0)},
      {4559.9999999, M, degrees(45, 59.9999999, 0)},
      {451234.56789, S, degrees(45, 12, 34.56789)},
      {-931234.5, S, -degrees(93, 12, 34.5)},
      {45.123456789, S, degrees(45, 12, 34.56789)},
      {-93.12, S, -degrees(93, 12, 0)},
      // Each of these is a hair less than its decimal text in binary; none may lose its minute or second.
      {45.12, S, degrees(45, 12, 0)},
      {45.13, S, degrees(45, 13, 0)},
      {93.07, S, degrees(93, 7, 0)},
      {47.3, S, degrees(47, 30, 0)},
      {44.5959, S, degrees(44, 59, 59)},
      {45, S, 45},
      {45.595999999, S, degrees(45, 59, 59.99999)},
      {0.0001, S, degrees(0, 0, 1)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << std::to_string(c.value) << " in form " << static_cast<char>(c.form));
    const std::optional<double> angle = interpretAngle(c.value, c.form);
    ASSERT_TRUE(angle.has_value());
    EXPECT_NEAR(*angle, c.expected, 1e-12);
  }
}

TEST(InterpretAngle, RefusesMinutesAndSecondsFrom60) {
  const struct {
    double value;
    AngleForm form;
  } cases[] = {{4560, M},         {-4599.5, M},
               {456000, S},       {451260, S},
               {-451299.9, S},    {45.60, S},
               {45.1260, S},      {45.99, S},

               {std::nan(""), D}, {std::numeric_limits<double>::infinity(), D}};
  for (const auto& c : cases) {
    EXPECT_FALSE(interpretAngle(c.value, c.form).has_value()) << c.value << " in form " << static_cast<char>(c.form);
  }
}

std::string spaced(double angle) {
  const SplitAngle split = splitAngle(angle);
  std::string text;
  appendDegrees(text, split);
  appendMinutes(text += ' ', split);
  appendSeconds(text += ' ', split);
  return text;
}

TEST(SplitAngle, RoundsOnceBeforeItSplits) {
  const struct {
    double angle;
    const char* text;
  } cases[] = {
      {45, "45 00 00.00000"},
      {-93.5, "-93 30 00.00000"},
      {degrees(45, 12, 34.56789), "45 12 34.56789"},
      {degrees(45, 59, 59.999994), "45 59 59.99999"},
      {degrees(45, 59, 59.999996), "46 00 00.00000"},
      {-degrees(9, 59, 59.999999), "-10 00 00.00000"},
      {degrees(45, 12, 59.999996), "45 13 00.00000"},
      {5.25, "05 15 00.00000"},
      {-0.5, "-00 30 00.00000"},
      {-1e-12, "00 00 00.00000"},
      {123.75, "123 45 00.00000"},
  };
  for (const auto& c : cases) EXPECT_EQ(spaced(c.angle), c.text) << std::to_string(c.angle);
}

TEST(SplitAngle, SurvivesWhatIsNoAngle) {
  EXPECT_EQ(splitAngle(1e300).degrees, 1000000000);
  EXPECT_EQ(splitAngle(-std::numeric_limits<double>::infinity()).degrees, 1000000000);
}

}  // namespace
}  // namespace tovak::text
